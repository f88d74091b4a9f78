// A game window as its owner keeps it, in tests: destroyed only once it has finished.
#pragma once

#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <memory>
#include <optional>
#include <utility>

#include "net/tcp_connection.h"
#include "tests/support/waiting.h"
#include "ui/board_view.h"
#include "ui/game_window.h"
#include "ui/text_box.h"

namespace brontavia::test {

template <typename GameForm>
struct OwnedWindow {
  OwnedWindow(Role role, std::int32_t port, std::unique_ptr<Connection> connection = std::make_unique<TcpConnection>())
      : Values{.ConnectionPort = port, .PlayerRole = role}, Window(new GameForm(Values, std::move(connection))) {
    QObject::connect(Window, &GameWindow::Finished, Window, [this](AfterWindow after) {
      Finished = after;
      Window->deleteLater();
    });
    Window->show();
    Window->Load();
  }
  Q_DISABLE_COPY_MOVE(OwnedWindow)
  ~OwnedWindow() { delete Window; }

  template <typename Widget>
  Widget* Control(const QString& name) {
    return Window->template findChild<Widget*>(name);
  }
  QString Text(const QString& box) {
    return OnGui([&] { return Control<TextBox>(box)->toPlainText(); });
  }
  BoardView* FG1() { return Control<BoardView>(QStringLiteral("FG1")); }

  // ---- For the user's script ----

  void Press(const QString& button) {
    Post([this, button] { Control<QPushButton>(button)->click(); });
  }
  void Click(CellIndex cell) {
    Post([this, cell] { QTest::mouseClick(FG1(), Qt::LeftButton, {}, FG1()->CellRect(cell).center()); });
  }
  bool ComesToShow(CellIndex cell, const QString& text) {
    return Eventually([&] { return FG1()->Model().Cell(cell).Text == text; });
  }
  void Close() {
    Post([this] { Window->close(); });
  }
  bool Goes() {
    return Eventually([this] { return Window.isNull(); });
  }

  ProcessValues Values;
  QPointer<GameForm> Window;
  std::optional<AfterWindow> Finished;
};

}  // namespace brontavia::test
