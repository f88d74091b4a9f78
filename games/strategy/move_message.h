// A move as it travels: what follows its token.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "games/strategy/combat.h"

namespace brontavia {

// Cells as the mover sees them.
struct StrategyMove {
  Coordinate From;
  Coordinate To;
  CombatResult Result = CombatResult::AttackerWins;  // never FlagTaken
  friend bool operator==(const StrategyMove&, const StrategyMove&) = default;
};

// "03,04,03,05,01,": column and row of both cells, then the result, each with two digits and ",".
std::u16string StrategyMoveText(const StrategyMove& move);

// What is no number or missing reads as 0, and what follows the five fields is not looked at. Nothing when the result
// is none of 0..2; whether the cells lie on the board is the board's to tell.
std::optional<StrategyMove> ReadStrategyMove(std::u16string_view payload);

}  // namespace brontavia
