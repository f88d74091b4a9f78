// Everything that the piece picked up may do.
#pragma once

#include "games/chess/piece_steps.h"

namespace brontavia {

// Where a king may castle to.
struct CastleTargets {
  std::optional<Coordinate> Short;
  std::optional<Coordinate> Long;
  friend bool operator==(const CastleTargets&, const CastleTargets&) = default;
};

struct GeneratedTargets {
  TargetList Squares;     // castling included; whether the own king would be left in check is not looked at
  CastleTargets Castles;  // of a king; others have none
};

// `selection` must stand on the board; without a piece there are no targets.
GeneratedTargets GenerateTargets(const ChessPosition& position, const ChessSelection& selection);

}  // namespace brontavia
