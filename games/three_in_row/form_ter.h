// The window of three in a row.
#pragma once

#include <memory>

#include "games/three_in_row/ter_painter.h"
#include "games/three_in_row/three_in_row_flow.h"
#include "ui/board_view.h"
#include "ui/game_window.h"

namespace brontavia {

class FormTER : public GameWindow {
  Q_OBJECT

 public:
  FormTER(ProcessValues& values, std::unique_ptr<Connection> connection);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  ThreeInRowFlow flow_;
  TerPainter painter_;
  std::unique_ptr<BoardView> board_;  // shows the flow's board, so it goes first
};

}  // namespace brontavia
