// Whether all of a game window can be read: no control outside it or under another, no text cut, and cells as large as
// the design wants them.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLayout>
#include <QMap>
#include <QMenuBar>

#include "net/tcp_connection.h"
#include "tests/support/shown_text.h"
#include "tests/support/users_font.h"
#include "ui/board_view.h"
#include "ui/game_frame.h"
#include "ui/text_box.h"

namespace brontavia::test {

struct LayoutCase {
  QSize Window;
  int FontPixels = 0;       // 13 are 10 pt, 24 are 18 pt
  int LeastCellHeight = 0;  // of FG1
};

inline void ExpectNothingCut(QWidget& frame) {
  const QList<QWidget*> controls = frame.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
  for (const QWidget* control : controls) {
    if (control->isHidden()) continue;
    const QString name = control->objectName() + control->accessibleName();
    EXPECT_TRUE(frame.rect().contains(control->geometry())) << qPrintable(name);
    for (const QWidget* other : controls) {
      if (other == control || other->isHidden()) continue;
      EXPECT_FALSE(control->geometry().intersects(other->geometry()))
          << qPrintable(name) << " and " << qPrintable(other->objectName() + other->accessibleName());
    }
    if (const auto* label = qobject_cast<const QLabel*>(control)) {
      EXPECT_GE(label->height(), QFontMetrics(label->font()).height()) << qPrintable(label->text());
      EXPECT_GE(label->width(), QFontMetrics(label->font()).horizontalAdvance(label->text()))
          << qPrintable(label->text());
    }
  }
}

// That of the window that has been made, which takes it in as the game begins.
inline GameFrame* OnlyGameFrame() {
  for (QWidget* widget : QApplication::allWidgets()) {
    if (auto* frame = qobject_cast<GameFrame*>(widget)) return frame;
  }
  return nullptr;
}

// A window of the game under way, in every size and font. `texts` says what stands in which box; all of it must be seen
// without scrolling. `caption` stands over the board, where it is not empty.
template <typename GameForm>
void ExpectGoodLayout(std::initializer_list<LayoutCase> cases, const QMap<QString, QString>& texts,
                      const QString& caption = {}) {
  for (const LayoutCase& expected : cases) {
    SCOPED_TRACE(testing::Message() << expected.Window.width() << " x " << expected.Window.height() << ", font of "
                                    << expected.FontPixels);
    const UsersFont font(expected.FontPixels);
    ProcessValues values;
    GameForm window(values, std::make_unique<TcpConnection>());
    GameFrame* frame = OnlyGameFrame();
    ASSERT_NE(frame, nullptr);
    window.layout()->addWidget(frame);
    frame->show();
    if (!caption.isEmpty()) frame->ShowBoardCaption(caption, PlayerSign::Pennant);
    if (auto* menus = window.template findChild<QMenuBar*>()) menus->show();
    window.resize(expected.Window);
    window.show();
    for (auto text = texts.begin(); text != texts.end(); ++text) {
      window.template findChild<TextBox*>(text.key())->SetText(text.value());
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(window.size(), expected.Window) << "it does not insist on more";
    ExpectNothingCut(*frame);
    auto* board = window.template findChild<BoardView*>(QStringLiteral("FG1"));
    const QRect cells = board->CellRect({0, 0}).united(
        board->CellRect({board->Model().rowCount() - 1, board->Model().columnCount() - 1}));
    EXPECT_TRUE(board->rect().contains(cells));
    EXPECT_GE(board->CellRect({1, 1}).height(), expected.LeastCellHeight);
    for (const QString& name : texts.keys()) {
      const auto* box = window.template findChild<TextBox*>(name);
      EXPECT_TRUE(ShowsAllOfItsText(*box)) << qPrintable(name);
      EXPECT_GE(QFontInfo(box->font()).pixelSize(), 11) << qPrintable(name);
    }
  }
}

}  // namespace brontavia::test
