// The windows of the strategy games: one class with two variants.
#pragma once

#include <memory>
#include <utility>

#include "games/strategy/strategy_flow.h"
#include "games/strategy/strategy_painter.h"
#include "ui/board_view.h"
#include "ui/game_window.h"

namespace brontavia {

class FormStrategy : public GameWindow {
  Q_OBJECT

 public:
  FormStrategy(const StrategyGame& game, ProcessValues& values, std::unique_ptr<Connection> connection);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  StrategyFlow flow_;
  StrategyPainter painter_;
  std::unique_ptr<BoardView> board_;  // shows the flow's grid, so it goes first
};

class FormEST : public FormStrategy {
 public:
  FormEST(ProcessValues& values, std::unique_ptr<Connection> connection)
      : FormStrategy(kGameEST, values, std::move(connection)) {}
};

class FormMES : public FormStrategy {
 public:
  FormMES(ProcessValues& values, std::unique_ptr<Connection> connection)
      : FormStrategy(kGameMES, values, std::move(connection)) {}
};

}  // namespace brontavia
