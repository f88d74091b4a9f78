#include "games/strategy/strategy_game.h"

namespace brontavia {

constexpr StrategyGame kGameEST{.Window = kFormEST,
                                .Variant = kEstratega,
                                .CellWidth = 1000,
                                .CellHeight = 6000 / 10,
                                .PlacedTitle = u"Estratega",
                                .TellsReadyOpponent = false};

constexpr StrategyGame kGameMES{.Window = kFormMES,
                                .Variant = kMiniEstratega,
                                .CellWidth = 1143,  // 8000 / 7, rounded
                                .CellHeight = 6000 / 8,
                                .PlacedTitle = u"Mini - Estratega",
                                .TellsReadyOpponent = true};

}  // namespace brontavia
