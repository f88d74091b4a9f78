#include "games/three_in_row/form_ter.h"

#include <QApplication>
#include <QKeyEvent>
#include <utility>

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

// Keys that keep their usual meaning wherever the focus is: moving the focus, copying, and modifiers on their own.
bool KeepsItsMeaning(const QKeyEvent& key) {
  if (key.matches(QKeySequence::Copy)) return true;
  switch (key.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Control:
    case Qt::Key_Shift:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
      return true;
    default:
      return false;
  }
}

}  // namespace

FormTER::FormTER(ProcessValues& values, std::unique_ptr<Connection> connection)
    : GameWindow(kFormTER, std::move(connection)),
      flow_(MakeSeams(values), SeedOfWindow()),
      board_(std::make_unique<BoardView>(flow_.FG1(), painter_)) {
  connect(board_.get(), &BoardView::CellClicked, &flow_, &ThreeInRowFlow::BoardClicked);
  Attach(flow_, *board_);
  qApp->installEventFilter(this);
}

bool FormTER::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto* widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr || widget->window() != this || !board_->isEnabled() || !board_->isVisible()) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  if (key->key() == Qt::Key_F1) {
    board_->setFocus();
    return true;
  }
  if (widget == board_.get() || KeepsItsMeaning(*key)) return false;
  board_->setFocus();
  return true;
}

}  // namespace brontavia
