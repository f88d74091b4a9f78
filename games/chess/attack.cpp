#include "games/chess/attack.h"

#include "games/chess/piece_steps.h"

namespace brontavia {
namespace {

constexpr int kWhitePawn = PieceOf(kPawn, Colour::White);
constexpr int kBlackPawn = PieceOf(kPawn, Colour::Black);

bool AnswersAttacked(const ChessSelection& attacker, Coordinate square) {
  if (attacker.Piece == kWhitePawn) return false;
  return attacker.Piece != kBlackPawn || attacker.Source.Column != square.Column;
}

}  // namespace

bool IsSquareAttacked(const ChessPosition& position, Coordinate square, std::optional<Colour> colour,
                      std::optional<Coordinate> lifted) {
  if (lifted) {
    ChessPosition without = position;
    without.Board.Put(*lifted, kNoPiece);
    return IsSquareAttacked(without, square, colour);
  }
  const ChessBoard& board = position.Board;
  if (!colour) colour = board.ColourAt(square);
  if (!colour) return false;
  const Colour attackers = OpponentOf(*colour);
  bool attacked = false;
  for (int column = 1; column <= kBoardSide; ++column) {
    for (int row = 1; row <= kBoardSide; ++row) {
      const Coordinate source{.Column = column, .Row = row};
      if (board.ColourAt(source) != attackers) continue;
      const ChessSelection attacker{.Source = source, .Piece = board.At(source)};
      if (PieceSteps(position, attacker).Holds(square)) attacked = AnswersAttacked(attacker, square);
    }
  }
  return attacked;
}

}  // namespace brontavia
