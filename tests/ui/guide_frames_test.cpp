// What guides server and client until their connection stands.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QVBoxLayout>
#include <algorithm>

#include "net/window_traits.h"
#include "tests/support/joined_connections.h"
#include "tests/support/printers.h"
#include "tests/support/users_font.h"
#include "ui/client_frame.h"
#include "ui/guide_box.h"
#include "ui/one_line_label.h"
#include "ui/picture_button.h"
#include "ui/server_frame.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

const QList<OwnAddress> kSix{{u"192.168.1.37"_s, AddressKind::Cable},
                             {u"192.168.1.38"_s, AddressKind::Radio},
                             {u"88.1.2.3"_s, AddressKind::InternetIPv4},
                             {u"10.8.0.6"_s, AddressKind::VirtualNetwork},
                             {u"2a02:8109:9c40:2f00:5e51:4fff:fe3a:71d2"_s, AddressKind::InternetIPv6},
                             {u"2a02::2"_s, AddressKind::InternetIPv6}};

// A frame in a window.
template <typename Frame>
struct Shown {
  template <typename Argument>
  explicit Shown(const Argument& argument) : Frame_(new Frame(argument)) {
    (new QVBoxLayout(&Window))->addWidget(Frame_);
    Window.resize(800, 600);
  }
  Q_DISABLE_COPY_MOVE(Shown)
  ~Shown() = default;

  bool Show() {
    Window.show();
    return QTest::qWaitForWindowActive(&Window);
  }

  [[nodiscard]] QStringList CopyButtons() const {
    QStringList names;
    for (const QPushButton* button : Frame_->template findChildren<QPushButton*>()) {
      if (button->isVisible() && button->accessibleName().startsWith(u"Copia"_s)) names << button->accessibleName();
    }
    return names;
  }

  [[nodiscard]] QStringList Labels() const {
    QStringList texts;
    for (const QLabel* label : Frame_->template findChildren<QLabel*>()) {
      if (label->isVisible()) texts << label->text();
    }
    return texts;
  }

  [[nodiscard]] QPushButton* Button(const QString& name) const {
    for (QPushButton* button : Frame_->template findChildren<QPushButton*>()) {
      if (button->isVisible() && (button->accessibleName() == name || button->text() == name)) return button;
    }
    return nullptr;
  }

  QWidget Window;
  Frame* Frame_;
};

constexpr int kTenPoints = 13;
constexpr int kEighteenPoints = 24;

// ---- The server's frame ----

TEST(ServerFrameWindow, ListsTheAddressesAndSaysForWhomTheyAre) {
  TestConnection connection;
  connection.Addresses = kSix.first(4);
  Shown<ServerFrame> shown(connection);
  shown.Frame_->SetPort(40000);
  ASSERT_TRUE(shown.Show());
  EXPECT_EQ(shown.Frame_->title(), u"SERVIDOR"_s);
  EXPECT_EQ(shown.CopyButtons(), QStringList({u"Copiar 192.168.1.37"_s, u"Copiar 192.168.1.38"_s, u"Copiar 88.1.2.3"_s,
                                              u"Copiar 10.8.0.6"_s}));
  const QStringList labels = shown.Labels();
  for (const QString& text :
       {u"Direcciones de este ordenador"_s, u"192.168.1.37"_s,
        u"Red local (cable) · Para otro ordenador de esta casa o de esta red"_s,
        u"Red local (wifi) · Para otro ordenador de esta casa o de esta red"_s, u"Internet · Para cualquiera"_s,
        u"Red privada virtual · Para quien esté en la misma red privada"_s, u"Puerto"_s, u"40000"_s,
        u"El otro jugador debe usar el mismo puerto."_s,
        u"Si juegan por Internet, el otro jugador necesita la dirección externa de su router, que este programa no "
        u"puede ver; búsquela en la página de configuración del router y abra en él el puerto 40000 hacia este "
        u"ordenador."_s}) {
    EXPECT_TRUE(labels.contains(text)) << text.toStdString();
  }
  EXPECT_EQ(shown.Button(u"Copiar 10.8.0.6"_s)->accessibleDescription(),
            u"Red privada virtual · Para quien esté en la misma red privada"_s);
  EXPECT_EQ(shown.Button(u"Más direcciones"_s), nullptr);
}

TEST(ServerFrameWindow, CopiesAnAddressByMouseAndByKeysAndSaysSoForTwoSeconds) {
  TestConnection connection;
  connection.Addresses = kSix.first(3);
  Shown<ServerFrame> shown(connection);
  ASSERT_TRUE(shown.Show());
  QClipboard& clipboard = *QApplication::clipboard();
  QPushButton* first = shown.Button(u"Copiar 192.168.1.37"_s);
  ASSERT_NE(first, nullptr);
  first->click();
  EXPECT_EQ(clipboard.text(), u"192.168.1.37"_s);
  EXPECT_EQ(first->text(), u"Copiada"_s);
  EXPECT_EQ(first->accessibleName(), u"Copiada 192.168.1.37"_s);
  QPushButton* second = shown.Button(u"Copiar 192.168.1.38"_s);
  ASSERT_NE(second, nullptr) << "only the one that was pressed";
  QTest::keyClick(second, Qt::Key_Space);
  EXPECT_EQ(clipboard.text(), u"192.168.1.38"_s);
  QTest::keyClick(shown.Button(u"Copiar 88.1.2.3"_s), Qt::Key_Return);
  EXPECT_EQ(clipboard.text(), u"88.1.2.3"_s);
  EXPECT_TRUE(QTest::qWaitFor([&] { return first->text() == u"Copiar"_s; }));
  EXPECT_EQ(first->accessibleName(), u"Copiar 192.168.1.37"_s);
}

TEST(ServerFrameWindow, KeepsFourAddressesInSightAndTheRestBehindAButton) {
  TestConnection connection;
  connection.Addresses = kSix;
  Shown<ServerFrame> shown(connection);
  ASSERT_TRUE(shown.Show());
  EXPECT_EQ(shown.CopyButtons().size(), 4);
  EXPECT_EQ(shown.CopyButtons().first(), u"Copiar 192.168.1.37"_s);
  QPushButton* more = shown.Button(u"Más direcciones"_s);
  ASSERT_NE(more, nullptr);
  QTest::keyClick(more, Qt::Key_Space);
  EXPECT_EQ(shown.CopyButtons(),
            QStringList({u"Copiar 88.1.2.3"_s, u"Copiar 10.8.0.6"_s,
                         u"Copiar 2a02:8109:9c40:2f00:5e51:4fff:fe3a:71d2"_s, u"Copiar 2a02::2"_s}))
      << "the last ones, and no empty rows";
  QTest::keyClick(more, Qt::Key_Space);
  EXPECT_EQ(shown.CopyButtons().first(), u"Copiar 192.168.1.37"_s);
}

TEST(ServerFrameWindow, SaysThatThereIsNoNetwork) {
  TestConnection connection;
  Shown<ServerFrame> shown(connection);
  ASSERT_TRUE(shown.Show());
  EXPECT_EQ(shown.CopyButtons(), QStringList());
  EXPECT_TRUE(shown.Labels().contains(u"Este ordenador no está conectado a ninguna red."_s));
  connection.Addresses = kSix.first(1);
  QEvent activated(QEvent::WindowActivate);
  QApplication::sendEvent(&shown.Window, &activated);
  EXPECT_EQ(shown.CopyButtons(), QStringList(u"Copiar 192.168.1.37"_s)) << "a cable has been plugged in meanwhile";
  EXPECT_FALSE(shown.Labels().contains(u"Este ordenador no está conectado a ninguna red."_s));
}

TEST(ServerFrameWindow, AnAddressThatHasBeenCopiedStaysSoWhenTheWindowComesToTheFront) {
  TestConnection connection;
  connection.Addresses = kSix.first(2);
  Shown<ServerFrame> shown(connection);
  ASSERT_TRUE(shown.Show());
  shown.Button(u"Copiar 192.168.1.38"_s)->click();
  QEvent activated(QEvent::WindowActivate);
  QApplication::sendEvent(&shown.Window, &activated);
  EXPECT_EQ(shown.CopyButtons(), QStringList({u"Copiar 192.168.1.37"_s, u"Copiada 192.168.1.38"_s}));
}

TEST(ServerFrameWindow, TheFirstAddressHasTheFocusAndTabGoesOnToTheInstructions) {
  TestConnection connection;
  connection.Addresses = kSix;
  Shown<ServerFrame> shown(connection);
  ASSERT_TRUE(shown.Show());
  QStringList names;
  while (names.size() < 2 || names.last() != names.first()) {
    ASSERT_LT(names.size(), 10);
    names << QAccessible::queryAccessibleInterface(QApplication::focusWidget())->text(QAccessible::Name);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(names,
            QStringList({u"Copiar 192.168.1.37"_s, u"Copiar 192.168.1.38"_s, u"Copiar 88.1.2.3"_s, u"Copiar 10.8.0.6"_s,
                         u"Instrucciones"_s, u"Más direcciones"_s, u"Copiar 192.168.1.37"_s}));
}

TEST(ServerFrameWindow, TellsTheInstructionsAndWhatMustNotBeOverlooked) {
  TestConnection connection;
  Shown<ServerFrame> shown(connection);
  shown.Frame_->SetPort(34567);
  ASSERT_TRUE(shown.Show());
  const QString guidance = shown.Frame_->Guidance();
  EXPECT_TRUE(guidance.startsWith(u"El programa ha empezado a escuchar"_s)) << qPrintable(guidance);
  EXPECT_TRUE(guidance.contains(u"Este ordenador no está conectado a ninguna red."_s));
  EXPECT_TRUE(guidance.endsWith(u"el puerto 34567 hacia este ordenador."_s));
  EXPECT_TRUE(shown.Frame_->findChild<GuideBox*>(u"TbServ1"_s)->hasFocus()) << "there is no address to copy";
}

// What shows, apart from the picture, lies inside the frame, and nothing over anything else.
void ExpectOrderly(const QWidget& frame) {
  QList<const QWidget*> parts;
  for (const QObject* child : frame.children()) {
    const auto* part = qobject_cast<const QWidget*>(child);
    if (part != nullptr && part->isVisible() && !part->size().isEmpty()) parts << part;
  }
  for (const QWidget* one : parts) {
    EXPECT_TRUE(frame.contentsRect().contains(one->geometry())) << one->metaObject()->className();
    for (const QWidget* other : parts) {
      EXPECT_TRUE(one == other || !one->geometry().intersects(other->geometry()))
          << one->metaObject()->className() << " over " << other->metaObject()->className();
    }
  }
}

TEST(ServerFrameWindow, FitsSmallWindowsAndLargeFonts) {
  for (const int pixels : {kTenPoints, kEighteenPoints}) {
    const UsersFont font(pixels);
    for (const qsizetype addresses : {0, 1, 3, 6}) {
      for (const QSize& size : {QSize(800, 600), QSize(1080, 760), QSize(520, 640)}) {
        SCOPED_TRACE(testing::Message() << pixels << " pixels, " << addresses << " addresses, " << size.width());
        TestConnection connection;
        connection.Addresses = kSix.first(addresses);
        Shown<ServerFrame> shown(connection);
        shown.Frame_->SetPort(34567);
        shown.Window.resize(size);
        ASSERT_TRUE(shown.Show());
        ExpectOrderly(*shown.Frame_);
        const auto* instructions = shown.Frame_->findChild<GuideBox*>(u"TbServ1"_s);
        EXPECT_EQ(instructions->verticalScrollBar()->maximum(), 0) << "all of it is to be read without scrolling";
        EXPECT_GE(QFontInfo(instructions->font()).pixelSize(), 11);
        EXPECT_EQ(shown.CopyButtons().isEmpty(), addresses == 0) << "the first address always shows";
        const qsizetype hidden = addresses - shown.CopyButtons().size();
        EXPECT_EQ(shown.Button(u"Más direcciones"_s) != nullptr, hidden > 0);
      }
    }
  }
}

// ---- The client's frame ----

TEST(ClientFrameWindow, HasBothWaysToConnectAndItsInstructions) {
  Shown<ClientFrame> shown(ClientInstructions(kFormTER));
  QSignalSpy here(shown.Frame_, &ClientFrame::CBConLocalClicked);
  QSignalSpy there(shown.Frame_, &ClientFrame::CbConectarClicked);
  ASSERT_TRUE(shown.Show());
  EXPECT_EQ(shown.Frame_->title(), u"CLIENTE"_s);
  EXPECT_EQ(QApplication::focusWidget(), shown.Frame_->findChild<QPushButton*>(u"CBConLocal"_s));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(here.count(), 1);
  QTest::mouseClick(shown.Frame_->findChild<QPushButton*>(u"CbConectar"_s), Qt::LeftButton);
  EXPECT_EQ(there.count(), 1);
  EXPECT_EQ(here.count(), 1);
}

TEST(ClientFrameWindow, FitsSmallWindowsAndLargeFonts) {
  for (const int pixels : {kTenPoints, kEighteenPoints}) {
    const UsersFont font(pixels);
    for (const QSize& size : {QSize(800, 600), QSize(1080, 760), QSize(480, 640)}) {
      SCOPED_TRACE(testing::Message() << pixels << " pixels, " << size.width());
      Shown<ClientFrame> shown(ClientInstructions(kFormBAR));
      shown.Window.resize(size);
      ASSERT_TRUE(shown.Show());
      ExpectOrderly(*shown.Frame_);
      const auto* instructions = shown.Frame_->findChild<GuideBox*>(u"TbCli1"_s);
      EXPECT_EQ(instructions->verticalScrollBar()->maximum(), 0);
      EXPECT_EQ(instructions->font().pixelSize(), pixels);
      const QRect here = shown.Frame_->findChild<QPushButton*>(u"CBConLocal"_s)->geometry();
      const QRect there = shown.Frame_->findChild<QPushButton*>(u"CbConectar"_s)->geometry();
      EXPECT_EQ(here.top() == there.top(), size.width() > 560) << "one over the other where it is narrow";
    }
  }
}

// ---- The box of the instructions ----

// Where the line with this character begins, from above.
int TopOf(const GuideBox& box, qsizetype position) {
  QTextCursor cursor(box.document());
  cursor.setPosition(static_cast<int>(position));
  return box.cursorRect(cursor).top();
}

TEST(GuideBoxWindow, TellsAGivenLineEndFromAWrappedOne) {
  const QString wraps = u"una línea larga que no cabe entera en su caja y por eso continúa en otra más abajo"_s;
  GuideBox box(u"Text1"_s, u"Indicaciones"_s);
  box.SetText(wraps + u"\r\ncorta\r\ncorta\r\n"_s);
  box.resize(400, box.heightForWidth(400));
  box.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&box));
  const QTextBlock first = box.document()->begin();
  ASSERT_EQ(first.layout()->lineCount(), 2);
  const int line = TopOf(box, wraps.size()) - TopOf(box, 0);
  const int after_wrapped = TopOf(box, wraps.size() + 1) - TopOf(box, wraps.size());
  const int after_short = TopOf(box, wraps.size() + 7) - TopOf(box, wraps.size() + 1);
  EXPECT_EQ(after_short, line);
  EXPECT_NEAR(after_wrapped - line, 0.4 * QFontInfo(box.font()).pixelSize(), 1);
}

TEST(GuideBoxWindow, IsAsHighAsItsTextAndWritesSmallerWithLessRoom) {
  GuideBox box(u"Text1"_s, u"Indicaciones"_s);
  box.SetText(kServerInstructions.toString());
  const int full = box.font().pixelSize();
  box.resize(500, box.heightForWidth(500));
  box.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&box));
  EXPECT_EQ(box.font().pixelSize(), full);
  EXPECT_EQ(box.verticalScrollBar()->maximum(), 0);
  box.resize(500, box.heightForWidth(500) - 8);
  EXPECT_LT(box.font().pixelSize(), full);
  EXPECT_EQ(box.verticalScrollBar()->maximum(), 0);
  box.resize(500, 40);
  EXPECT_GE(box.font().pixelSize(), 11);
  EXPECT_GT(box.verticalScrollBar()->maximum(), 0) << "what does not fit even so can be scrolled to";
  box.resize(500, box.heightForWidth(500));
  EXPECT_EQ(box.font().pixelSize(), full);
  EXPECT_EQ(box.verticalScrollBar()->maximum(), 0);
}

// ---- One line that is never cut ----

// The last column of pixels in which something is written.
int EndOfWriting(QWidget& widget) {
  const QImage image = widget.grab().toImage();
  const QRgb ground = image.pixel(image.width() - 1, 0);
  for (int x = image.width() - 1; x >= 0; --x) {
    for (int y = 0; y < image.height(); ++y) {
      if (image.pixel(x, y) != ground) return x;
    }
  }
  return -1;
}

TEST(PictureButtonWindow, KeepsItsCaptionAwayFromItsEdge) {
  constexpr int kFree = 12;
  PictureButton button(
      u"Jugar como cliente"_s, [](QPainter&, const QRectF&, const look::Colours&) {}, 0.077);
  const int height = button.minimumSizeHint().height();
  for (int width = button.minimumSizeHint().width(); width <= 2 * button.sizeHint().width(); ++width) {
    button.resize(width, height);
    const QImage shown = button.grab().toImage();
    const QImage margin = shown.copy(width - kFree, kFree, kFree - 3, height - 2 * kFree);
    QImage empty(margin.size(), margin.format());
    empty.fill(margin.pixelColor(0, 0));
    ASSERT_EQ(margin, empty) << width;
  }
}

TEST(OneLineLabelWindow, IsNarrowedRatherThanCut) {
  OneLineLabel label(u"2a02:8109:9c40:2f00:5e51:4fff:fe3a:71d2"_s);
  const int full = label.sizeHint().width();
  for (const int width : {full, full * 9 / 10, full * 3 / 4, full * 2 / 3}) {
    label.resize(width, label.sizeHint().height());
    EXPECT_LT(EndOfWriting(label), width - 1) << width << " of " << full;
    EXPECT_GT(EndOfWriting(label), width / 2);
  }
}

}  // namespace
}  // namespace brontavia::test
