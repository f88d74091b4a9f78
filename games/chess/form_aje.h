// The window of chess.
#pragma once

#include <memory>

#include "games/chess/chess_flow.h"
#include "games/chess/chess_painter.h"
#include "ui/board_view.h"
#include "ui/game_window.h"

class QAction;
class QMenu;

namespace brontavia {

class FormAje : public GameWindow {
  Q_OBJECT

 public:
  FormAje(ProcessValues& values, std::unique_ptr<Connection> connection);

 private:
  void AddCommand(QMenu& menu, const ChessMenuEntry& entry);

  ChessFlow flow_;
  ChessPainter painter_;
  std::unique_ptr<BoardView> board_;  // shows the flow's grid, so it goes first
};

}  // namespace brontavia
