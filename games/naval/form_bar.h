// The window of the naval battle.
#pragma once

#include <memory>

#include "games/naval/naval_flow.h"
#include "games/naval/naval_painter.h"
#include "ui/board_view.h"
#include "ui/game_window.h"

namespace brontavia {

class FormBAR : public GameWindow {
  Q_OBJECT

 public:
  FormBAR(ProcessValues& values, std::unique_ptr<Connection> connection);

 private:
  NavalFlow flow_;
  NavalPainter painter_;
  NavalPainter own_fleet_painter_{ShipWriting::Initial};
  // They show the flow's grids, so they go first.
  std::unique_ptr<BoardView> board_;
  std::unique_ptr<BoardView> own_fleet_;
};

}  // namespace brontavia
