// What differs between the two strategy windows besides their rules and what net/window_traits.h tells of all windows.
#pragma once

#include "games/strategy/variant.h"
#include "net/window_traits.h"

namespace brontavia {

struct StrategyGame {
  const WindowTraits& Window;
  const StrategyVariant& Variant;
  int CellWidth = 0;  // twips
  int CellHeight = 0;
  QStringView PlacedTitle;          // of the question whether the army is complete
  bool TellsReadyOpponent = false;  // a box at the opponent's "Listo|" when both are ready
};

extern const StrategyGame kGameEST;
extern const StrategyGame kGameMES;

}  // namespace brontavia
