#include "games/chess/standard_fen.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "games/chess/piece_letters.h"
#include "text/blanks.h"

namespace brontavia {
namespace {

constexpr std::size_t kFields = 6;

std::vector<std::u16string_view> Split(std::u16string_view text, char16_t separator) {
  std::vector<std::u16string_view> parts;
  for (std::size_t end = 0; end != std::u16string_view::npos;) {
    end = text.find(separator);
    parts.push_back(text.substr(0, end));
    if (end != std::u16string_view::npos) text.remove_prefix(end + 1);
  }
  return parts;
}

// False when `text` has not exactly the squares of a row.
bool ReadRow(std::u16string_view text, int row, ChessBoard& board) {
  int column = 1;
  for (const char16_t c : text) {
    if (column > kBoardSide) return false;
    if (c >= u'1' && c <= u'8') {
      column += c - u'0';
    } else if (const std::optional<int> piece = PieceOfLetter(c, kEnglishLetters)) {
      board.Put({column++, row}, *piece);
    } else {
      return false;
    }
  }
  return column == kBoardSide + 1;
}

std::optional<ChessBoard> ReadBoard(std::u16string_view text) {
  const std::vector<std::u16string_view> rows = Split(text, u'/');
  if (rows.size() != kBoardSide) return std::nullopt;
  ChessBoard board;
  int row = kBoardSide;
  for (const std::u16string_view row_text : rows) {
    if (!ReadRow(row_text, row--, board)) return std::nullopt;
  }
  return board;
}

std::optional<Colour> ReadSide(std::u16string_view text) {
  if (text == u"w") return Colour::White;
  if (text == u"b") return Colour::Black;
  return std::nullopt;
}

std::optional<PerColour<CastleRights>> ReadCastling(std::u16string_view text) {
  PerColour<CastleRights> castling{.White = {false, false}, .Black = {false, false}};
  if (text == u"-") return castling;
  const auto take = [&text](char16_t letter) {
    const bool has = text.starts_with(letter);
    if (has) text.remove_prefix(1);
    return has;
  };
  if (text.empty()) return std::nullopt;
  castling.White = {.Short = take(kEnglishCastling[0]), .Long = take(kEnglishCastling[1])};
  castling.Black = {.Short = take(kEnglishCastling[2]), .Long = take(kEnglishCastling[3])};
  return text.empty() ? std::optional(castling) : std::nullopt;
}

// Nothing when `text` is no square that a pawn of the other side has passed.
std::optional<Coordinate> ReadEnPassant(std::u16string_view text, Colour side_to_move) {
  if (text.size() != 2) return std::nullopt;
  const Coordinate square{.Column = text[0] - u'a' + 1, .Row = text[1] - u'0'};
  const Colour passer = OpponentOf(side_to_move);
  const int passed_row = BackRow(passer) + 2 * ForwardStep(passer);
  return ChessBoard::IsOnBoard(square) && square.Row == passed_row ? std::optional(square) : std::nullopt;
}

bool MayCaptureOnto(const ChessBoard& board, Coordinate square, Colour side) {
  const int pawn_row = square.Row - ForwardStep(side);
  const int own_pawn = PieceOf(kPawn, side);
  return board.At({square.Column, pawn_row}) == PieceOf(kPawn, OpponentOf(side)) &&
         (board.At({square.Column - 1, pawn_row}) == own_pawn || board.At({square.Column + 1, pawn_row}) == own_pawn);
}

std::optional<std::int16_t> ReadCounter(std::u16string_view text) {
  constexpr int kHighest = std::numeric_limits<std::int16_t>::max();
  int value = 0;
  for (const char16_t c : text) {
    if (c < u'0' || c > u'9') return std::nullopt;
    value = value * 10 + (c - u'0');
    if (value > kHighest) return std::nullopt;
  }
  return text.empty() ? std::nullopt : std::optional(static_cast<std::int16_t>(value));
}

}  // namespace

std::optional<ChessPosition> ReadStandardFen(std::u16string_view text) {
  const std::vector<std::u16string_view> fields = Split(TrimBlanks(text), u' ');
  if (fields.size() != kFields) return std::nullopt;
  const auto board = ReadBoard(fields[0]);
  const auto side = ReadSide(fields[1]);
  const auto castling = ReadCastling(fields[2]);
  const auto half_moves = ReadCounter(fields[4]);
  const auto move_number = ReadCounter(fields[5]);
  if (!board || !side || !castling || !half_moves || !move_number) return std::nullopt;
  const auto en_passant = ReadEnPassant(fields[3], *side);
  if (!en_passant && fields[3] != u"-") return std::nullopt;
  ChessPosition position{.Board = *board,
                         .SideToMove = *side,
                         .Castling = *castling,
                         .KingSquares = FindKings(*board),
                         .FenEnPassant = en_passant,
                         .HalfMoveClock = *half_moves,
                         .MoveNumber = *move_number};
  if (en_passant && MayCaptureOnto(*board, *en_passant, *side)) position.EnPassantSquares[*side] = en_passant;
  return position;
}

}  // namespace brontavia
