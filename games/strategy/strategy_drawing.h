// What is drawn on a cell of a strategy board: the values of CellContent::Drawing. They tell no more than the cell's
// text does; of a hidden piece that is its army.
#pragma once

#include <optional>

#include "games/strategy/rank.h"

namespace brontavia::drawing {

inline constexpr int kLake = -1;

// A place of the army's zone that is still to be filled, as CellContent::Marks tells.
constexpr int PlaceOf(Player army) { return 100 * (NumberOf(army) + 1); }
// A piece whose rank its viewer knows, in the colour of `army`.
constexpr int FaceOf(Player army, Rank rank) { return PlaceOf(army) + NumberOf(rank); }
// A piece of which only the army is known.
constexpr int BackOf(Player army) { return PlaceOf(army) + kRanks + 1; }

// Nothing for a drawing without an army.
constexpr std::optional<Player> ArmyOf(int drawing) {
  for (const Player army : kBothPlayers) {
    if (drawing >= PlaceOf(army) && drawing <= BackOf(army)) return army;
  }
  return std::nullopt;
}

// Nothing for a drawing that is no face.
constexpr std::optional<Rank> RankOf(int drawing) {
  const auto army = ArmyOf(drawing);
  if (!army || drawing == PlaceOf(*army) || drawing == BackOf(*army)) return std::nullopt;
  return static_cast<Rank>(drawing - PlaceOf(*army));
}

constexpr bool IsBack(int drawing) {
  const auto army = ArmyOf(drawing);
  return army && drawing == BackOf(*army);
}

}  // namespace brontavia::drawing
