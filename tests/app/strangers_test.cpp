// What a stranger calls himself, in every game's window: text, and nothing else.
#include <gtest/gtest.h>

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <memory>

#include "app/games.h"
#include "net/message_tokens.h"
#include "tests/support/box_answerer.h"
#include "tests/support/joined_connections.h"
#include "tests/support/waiting.h"
#include "text/wire_encoding.h"
#include "ui/game_window.h"
#include "ui/text_box.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

// A client's window, as its owner keeps it, with a server that says what the test says.
class StrangersServer {
 public:
  explicit StrangersServer(const Game& game) : game_(game) {
    auto connection = std::make_unique<TestConnection>();
    TestConnection::Join(stranger_, *connection);
    stranger_.Listen(values_.ConnectionPort);
    QObject::connect(&stranger_, &Connection::ConnectionRequest, &stranger_,
                     [this](int request) { stranger_.Accept(request); });
    window_ = game.MakeWindow(values_, std::move(connection));
    QObject::connect(window_, &GameWindow::Finished, window_, &QObject::deleteLater);
    window_->show();
    window_->Load();
  }
  Q_DISABLE_COPY_MOVE(StrangersServer)
  ~StrangersServer() { delete window_; }

  // ---- For the user's script ----

  void Says(const QByteArray& bytes) {
    Post([this, bytes] { stranger_.SendData(FromWire(bytes)); });
  }
  // Accepts, and tells a name while the user is asked for his own.
  void AcceptsAs(const QByteArray& name) {
    Post([this] { window_->findChild<QPushButton*>(u"CBConLocal"_s)->click(); });
    EXPECT_TRUE(Eventually([this] { return stranger_.State() == ConnectionState::Connected; }));
    Says("Solicitud aceptada|" + game_.Window.GameCode.toLatin1());
    EXPECT_TRUE(Eventually([] { return TopDialog() != nullptr; }));
    Says("Nombre|" + name);
    EXPECT_TRUE(Eventually([this] { return stranger_.Quiet(); }));
  }
  bool ComesToTell(const QString& part) {
    return Eventually([&] { return Messages().contains(part); });
  }
  // Closes the window and whatever box is open; whether it goes.
  bool CanBeClosed() {
    Post([this] {
      if (window_) window_->close();
    });
    return Eventually([this] {
      if (auto* box = TopDialog()) box->reject();
      return window_.isNull();
    });
  }

  [[nodiscard]] QString Messages() const { return window_->findChild<TextBox*>(u"TBMensajes"_s)->toPlainText(); }
  [[nodiscard]] QList<QLabel*> Labels() const { return window_->findChildren<QLabel*>(); }

 private:
  const Game& game_;
  ProcessValues values_{.PlayerRole = Role::Client};
  TestConnection stranger_;
  QPointer<GameWindow> window_;
};

struct Name {
  QByteArray Sent;
  QString Shown;
};

const Name kNames[] = {
    {"<img src=\"/etc/passwd\"><b>Eva</b>", u"<img src=\"/etc/passwd\"><b>Eva</b>"_s},
    {"&lt;Eva&amp;", u"&lt;Eva&amp;"_s},
    {"\x1b[31mEva\a", u"\ufffd[31mEva\ufffd"_s},
    {QByteArray("E\0va", 4), u"E\ufffdva"_s},
    // A sign that turns the direction of writing has no character on the wire; the bytes it has elsewhere are three.
    {QByteArray::fromHex("e280ae") + "avE", u"â€®avE"_s},
    {"\x81\x8d\x9d", u"\ufffd\ufffd\ufffd"_s},
    {QByteArray(1 << 20, 'x'), QString(400, u'x')},
};

class Strangers : public testing::TestWithParam<const Game*> {};

TEST_P(Strangers, NamesAreShownAsTheyAre) {
  for (const Name& name : kNames) {
    StrangersServer server(*GetParam());
    AsUser([&] {
      server.AcceptsAs(name.Sent);
      AnswerInput(u"Introducir nombre"_s, u"Ana"_s);
      AnswerInput(u"Asignación del primer turno"_s, u"1"_s);
      server.Says("Turnodef|10");
      EXPECT_TRUE(server.ComesToTell(u"Va a jugar contra " + name.Shown)) << qPrintable(server.Messages().left(200));
      OnGui([&] {
        for (const QLabel* label : server.Labels()) {
          const bool plain = label->textFormat() == Qt::PlainText || label->text().isEmpty();  // one with a picture
          EXPECT_TRUE(plain) << qPrintable(label->text());
        }
      });
      EXPECT_TRUE(server.CanBeClosed());
    });
  }
}

TEST_P(Strangers, NamesThatAreMessagesLeaveAWindowThatCanBeClosed) {
  std::vector<const Message*> messages{&message::kAccepted};
  for (const Message* message : GetParam()->Window.Messages) messages.push_back(message);
  for (const Message* message : messages) {
    StrangersServer server(*GetParam());
    AsUser([&] {
      server.AcceptsAs("Eva" + message->Token.toLatin1() + "1 1");
      EXPECT_TRUE(server.CanBeClosed()) << qPrintable(message->Token.toString());
    });
  }
}

std::vector<const Game*> AllGames() {
  std::vector<const Game*> games;
  for (const Game& game : Games()) games.push_back(&game);
  return games;
}

INSTANTIATE_TEST_SUITE_P(Named, Strangers, testing::ValuesIn(AllGames()),
                         [](const auto& game) { return game.param->Window.Window.toString().toStdString(); });

}  // namespace
}  // namespace brontavia::test
