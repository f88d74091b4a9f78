#include "games/chess/square_text.h"

#include "text/decimal.h"

namespace brontavia {
namespace {

// Characters before the letters of column 1.
constexpr char16_t kBeforeSmall = u'a' - 1;
constexpr char16_t kBeforeCapital = u'A' - 1;

std::u16string Named(Coordinate square, char16_t before) {
  return static_cast<char16_t>(before + square.Column) + Decimal(square.Row);
}

}  // namespace

std::u16string SquareName(Coordinate square) { return Named(square, kBeforeSmall); }

std::u16string UpperSquareName(Coordinate square) { return Named(square, kBeforeCapital); }

std::u16string DescribeSquare(const ChessBoard& board, Coordinate square, const TargetList& targets,
                              bool learning_mode) {
  std::u16string text;
  if (learning_mode && targets.Holds(square)) text += u"Disponible ";
  const int piece = board.At(square);
  if (piece != kNoPiece) text += PieceName(piece);
  return text + u' ' + UpperSquareName(square);
}

}  // namespace brontavia
