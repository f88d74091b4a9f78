#include "games/strategy/form_strategy.h"

#include <QKeyEvent>

namespace brontavia {

using namespace Qt::StringLiterals;

FormStrategy::FormStrategy(const StrategyGame& game, ProcessValues& values, std::unique_ptr<Connection> connection)
    : GameWindow(game.Window, std::move(connection)),
      flow_(game, MakeSeams(values), SeedOfWindow()),
      board_(std::make_unique<BoardView>(flow_.FG1(), painter_)) {
  connect(board_.get(), &BoardView::CellClicked, &flow_, &StrategyFlow::BoardClicked);
  connect(board_.get(), &BoardView::PointerMoved, &flow_, &StrategyFlow::PointerMoved);
  Attach(flow_, *board_);
}

void FormStrategy::keyPressEvent(QKeyEvent* event) {
  // Keys come here from whatever has the focus and no use for them.
  if (!board_->isVisible()) return;
  if (event->key() == Qt::Key_F1) board_->setFocus();
  if (!event->isAutoRepeat()) flow_.KeyPressed(event->key());
}

}  // namespace brontavia
