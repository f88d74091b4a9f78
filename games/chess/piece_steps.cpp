#include "games/chess/piece_steps.h"

#include <algorithm>
#include <cstdlib>
#include <span>

namespace brontavia {
namespace {

using Step = Coordinate;  // columns to the right and rows up

// The straight ones first, then the diagonal ones; a king and a queen have them all.
constexpr std::array<Step, 8> kDirections{{{0, 1}, {1, 0}, {0, -1}, {-1, 0}, {1, 1}, {1, -1}, {-1, -1}, {-1, 1}}};
constexpr std::span<const Step> kAllDirections(kDirections);
constexpr std::span<const Step> kStraight = kAllDirections.first(4);
constexpr std::span<const Step> kDiagonal = kAllDirections.last(4);
constexpr std::array<Step, 8> kJumps{{{1, 2}, {2, 1}, {2, -1}, {1, -2}, {-1, -2}, {-2, -1}, {-2, 1}, {-1, 2}}};

Coordinate operator+(Coordinate square, Step step) {
  return {.Column = square.Column + step.Column, .Row = square.Row + step.Row};
}

// Collects what one piece may reach.
class StepFinder {
 public:
  StepFinder(const ChessPosition& position, const ChessSelection& selection, TargetList& found)
      : position_(position), source_(selection.Source), colour_(ColourOf(selection.Piece)), found_(found) {}

  void AddPawnSteps() {
    const int forward = ForwardStep(colour_);
    const Coordinate single = source_ + Step{.Row = forward};
    const Coordinate twice = single + Step{.Row = forward};
    if (source_.Row == BackRow(colour_) + forward && IsEmpty(single) && IsEmpty(twice)) Add(twice);
    if (IsEmpty(single)) Add(single);
    for (const int side : {-1, 1}) {
      const Coordinate diagonal = source_ + Step{.Column = side, .Row = forward};
      if (HoldsOpponent(diagonal) || diagonal == position_.EnPassantSquares[colour_]) Add(diagonal);
    }
  }

  // One step in each direction.
  void AddSingleSteps(std::span<const Step> steps) {
    for (const Step step : steps) {
      const Coordinate square = source_ + step;
      if (ChessBoard::IsOnBoard(square) && position_.Board.ColourAt(square) != colour_) found_.Add(square);
    }
  }

  // As far as the way is free in each direction, a capture at its end included.
  void AddRays(std::span<const Step> directions) {
    for (const Step direction : directions) {
      Coordinate square = source_ + direction;
      while (ChessBoard::IsOnBoard(square) && IsEmpty(square)) {
        found_.Add(square);
        square = square + direction;
      }
      if (HoldsOpponent(square)) found_.Add(square);
    }
  }

 private:
  // On the ring nothing stands.
  [[nodiscard]] bool IsEmpty(Coordinate square) const { return position_.Board.At(square) == kNoPiece; }
  [[nodiscard]] bool HoldsOpponent(Coordinate square) const {
    return position_.Board.ColourAt(square) == OpponentOf(colour_);
  }

  void Add(Coordinate square) {
    if (ChessBoard::IsOnBoard(square)) found_.Add(square);
  }

  const ChessPosition& position_;
  Coordinate source_;
  Colour colour_;
  TargetList& found_;
};

int SignOf(int number) { return std::clamp(number, -1, 1); }

// Whether `square` lies straight or diagonally from `source`, as `straight` and `diagonal` allow, and nothing stands in
// between.
bool IsOnRay(const ChessBoard& board, Coordinate source, Coordinate square, bool straight, bool diagonal) {
  const Step way{.Column = square.Column - source.Column, .Row = square.Row - source.Row};
  const bool on_line = way.Column == 0 || way.Row == 0;
  if (on_line ? !straight : !diagonal || std::abs(way.Column) != std::abs(way.Row)) return false;
  const Step step{.Column = SignOf(way.Column), .Row = SignOf(way.Row)};
  for (Coordinate between = source + step; between != square; between = between + step) {
    if (board.At(between) != kNoPiece) return false;
  }
  return true;
}

bool CanPawnStepTo(const ChessPosition& position, const ChessSelection& pawn, Coordinate square) {
  const Colour colour = ColourOf(pawn.Piece);
  const int forward = ForwardStep(colour);
  const int rows = (square.Row - pawn.Source.Row) * forward;
  const int standing = position.Board.At(square);
  if (square.Column == pawn.Source.Column) {
    if (standing != kNoPiece) return false;
    if (rows == 1) return true;
    return rows == 2 && pawn.Source.Row == BackRow(colour) + forward &&
           position.Board.At({square.Column, square.Row - forward}) == kNoPiece;
  }
  return rows == 1 && std::abs(square.Column - pawn.Source.Column) == 1 &&
         ((standing != kNoPiece && ColourOf(standing) != colour) || square == position.EnPassantSquares[colour]);
}

}  // namespace

bool CanStepTo(const ChessPosition& position, const ChessSelection& selection, Coordinate square) {
  if (!ChessBoard::IsOnBoard(square)) return false;
  const int kind = KindOf(selection.Piece);
  if (kind == kPawn) return CanPawnStepTo(position, selection, square);
  if (position.Board.ColourAt(square) == ColourOf(selection.Piece)) return false;
  const int columns = std::abs(square.Column - selection.Source.Column);
  const int rows = std::abs(square.Row - selection.Source.Row);
  switch (kind) {
    case kNoPiece:
      return false;
    case kKnight:
      return columns * rows == 2;
    case kKing:
      return std::max(columns, rows) == 1;
    default:
      return IsOnRay(position.Board, selection.Source, square, kind != kBishop, kind != kRook);
  }
}

TargetList PieceSteps(const ChessPosition& position, const ChessSelection& selection) {
  TargetList found;
  StepFinder finder(position, selection, found);
  switch (KindOf(selection.Piece)) {
    case kPawn:
      finder.AddPawnSteps();
      break;
    case kRook:
      finder.AddRays(kStraight);
      break;
    case kKnight:
      finder.AddSingleSteps(kJumps);
      break;
    case kBishop:
      finder.AddRays(kDiagonal);
      break;
    case kQueen:
      finder.AddRays(kAllDirections);
      break;
    case kKing:
      finder.AddSingleSteps(kAllDirections);
      break;
    default:
      break;
  }
  return found;
}

}  // namespace brontavia
