#include "games/chess/move_generation.h"

#include <algorithm>
#include <span>

#include "games/chess/attack.h"

namespace brontavia {
namespace {

// A castling by its columns on the back row.
struct CastleWay {
  std::span<const int> Empty;
  std::span<const int> Unattacked;
  int Target;
};

constexpr std::array kShortEmpty{6, 7};
constexpr std::array kShortUnattacked{5, 6, 7};
constexpr std::array kLongEmpty{2, 3, 4};
constexpr std::array kLongUnattacked{5, 4, 3};
constexpr CastleWay kShort{.Empty = kShortEmpty, .Unattacked = kShortUnattacked, .Target = 7};
constexpr CastleWay kLong{.Empty = kLongEmpty, .Unattacked = kLongUnattacked, .Target = 3};

bool IsOpen(const ChessPosition& position, const CastleWay& way, Colour colour) {
  const auto square = [colour](int column) { return Coordinate{.Column = column, .Row = BackRow(colour)}; };
  const auto is_empty = [&](int column) { return position.Board.At(square(column)) == kNoPiece; };
  const auto is_attacked = [&](int column) { return IsSquareAttacked(position, square(column), colour); };
  return std::all_of(way.Empty.begin(), way.Empty.end(), is_empty) &&
         std::none_of(way.Unattacked.begin(), way.Unattacked.end(), is_attacked);
}

CastleTargets CastlesOf(const ChessPosition& position, Colour colour) {
  const CastleRights& rights = position.Castling[colour];
  CastleTargets targets;
  if (rights.Short && IsOpen(position, kShort, colour)) targets.Short = Coordinate{kShort.Target, BackRow(colour)};
  if (rights.Long && IsOpen(position, kLong, colour)) targets.Long = Coordinate{kLong.Target, BackRow(colour)};
  return targets;
}

}  // namespace

GeneratedTargets GenerateTargets(const ChessPosition& position, const ChessSelection& selection) {
  GeneratedTargets targets{.Squares = PieceSteps(position, selection)};
  if (KindOf(selection.Piece) != kKing) return targets;
  targets.Castles = CastlesOf(position, ColourOf(selection.Piece));
  for (const std::optional<Coordinate>& target : {targets.Castles.Short, targets.Castles.Long}) {
    if (target) targets.Squares.Add(*target);
  }
  return targets;
}

}  // namespace brontavia
