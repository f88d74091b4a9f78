#include "tests/games/chess/plain_chess.h"

#include <cstdlib>
#include <sstream>

namespace brontavia::test {
namespace {

// (0, 0) for no square.
PlainChess::Place PlaceOf(std::optional<Coordinate> square) {
  return square ? PlainChess::Place{square->Column, square->Row} : PlainChess::Place{};
}

}  // namespace

PlainChess::PlainChess(const ChessPosition& position)
    : short_rights_{position.Castling.White.Short, position.Castling.Black.Short},
      long_rights_{position.Castling.White.Long, position.Castling.Black.Long},
      kings_{PlaceOf(position.KingSquares.White), PlaceOf(position.KingSquares.Black)},
      en_passant_{PlaceOf(position.EnPassantSquares.White), PlaceOf(position.EnPassantSquares.Black)},
      fen_en_passant_(PlaceOf(position.FenEnPassant)),
      side_(NumberOf(position.SideToMove)),
      half_moves_(position.HalfMoveClock),
      number_(position.MoveNumber) {
  for (int column = 1; column <= 8; ++column) {
    for (int row = 1; row <= 8; ++row) Cell(column, row) = position.Board.At({column, row});
  }
}

int PlainChess::Code(int column, int row) const { return cells_[IndexOf(column, row)]; }

int& PlainChess::Cell(int column, int row) { return cells_[IndexOf(column, row)]; }

int PlainChess::Colour(int column, int row) const {
  const int code = Code(column, row);
  if (code == 0) return -1;
  return code < 10 ? 0 : 1;
}

// Both squares on one line or diagonal.
bool PlainChess::ClearBetween(int x, int y, int column, int row) const {
  const int distance = std::max(std::abs(column - x), std::abs(row - y));
  for (int n = 1; n < distance; ++n) {
    if (Code(x + (n * (column - x) / distance), y + (n * (row - y) / distance)) != 0) return false;
  }
  return true;
}

bool PlainChess::PawnReaches(int x, int y, int colour, int column, int row) const {
  const int up = colour == 0 ? row - y : y - row;
  const int from_home = colour == 0 ? y - 1 : 8 - y;
  if (column == x) {
    if (up == 1) return Code(column, row) == 0;
    return up == 2 && from_home == 1 && Code(column, row) == 0 && Code(column, (row + y) / 2) == 0;
  }
  if (up != 1 || std::abs(column - x) != 1) return false;
  const int code = Code(column, row);
  if (colour == 0 ? code >= 11 : code >= 1 && code <= 6) return true;
  return en_passant_[static_cast<std::size_t>(colour)] == Place(column, row);
}

bool PlainChess::Reaches(int x, int y, int code, int column, int row) const {
  const int across = std::abs(column - x);
  const int along = std::abs(row - y);
  const int colour = code < 10 ? 0 : 1;
  if (across == 0 && along == 0) return false;
  const int kind = code % 10;
  if (kind == 1) return PawnReaches(x, y, colour, column, row);
  if (Colour(column, row) == colour) return false;
  const bool like_rook = across == 0 || along == 0;
  const bool like_bishop = across == along;
  switch (kind) {
    case 2:
      return like_rook && ClearBetween(x, y, column, row);
    case 3:
      return across * along == 2;
    case 4:
      return like_bishop && ClearBetween(x, y, column, row);
    case 5:
      return (like_rook || like_bishop) && ClearBetween(x, y, column, row);
    default:
      return across <= 1 && along <= 1;
  }
}

bool PlainChess::MayCastle(int colour, bool is_short) const {
  if (!(is_short ? short_rights_ : long_rights_)[static_cast<std::size_t>(colour)]) return false;
  const int row = colour == 0 ? 1 : 8;
  if (is_short) {
    return Code(6, row) == 0 && Code(7, row) == 0 && !Attacked(5, row, colour) && !Attacked(6, row, colour) &&
           !Attacked(7, row, colour);
  }
  return Code(2, row) == 0 && Code(3, row) == 0 && Code(4, row) == 0 && !Attacked(5, row, colour) &&
         !Attacked(4, row, colour) && !Attacked(3, row, colour);
}

PlainChess::Places PlainChess::Targets(int x, int y) {
  const int code = Code(x, y);
  Places targets;
  for (int column = 1; column <= 8; ++column) {
    for (int row = 1; row <= 8; ++row) {
      if (Reaches(x, y, code, column, row)) targets.set(IndexOf(column, row));
    }
  }
  if (code % 10 != 6) return targets;
  const int colour = code / 10;
  const int row = colour == 0 ? 1 : 8;
  CastleShort = CastleLong = Place(0, 0);
  if (MayCastle(colour, true)) {
    CastleShort = Place(7, row);
    targets.set(IndexOf(7, row));
  }
  if (MayCastle(colour, false)) {
    CastleLong = Place(3, row);
    targets.set(IndexOf(3, row));
  }
  return targets;
}

bool PlainChess::Attacked(int column, int row, int colour, Place lifted) const {
  if (lifted.first > -1) {
    PlainChess copy = *this;
    copy.Cell(lifted.first, lifted.second) = 0;
    return copy.Attacked(column, row, colour);
  }
  if (colour == -1) colour = Colour(column, row);
  if (column < 1 || column > 8 || row < 1 || row > 8) return false;
  bool result = false;
  for (int x = 1; x <= 8; ++x) {
    for (int y = 1; y <= 8; ++y) {
      if (Colour(x, y) != 1 - colour || !Reaches(x, y, Code(x, y), column, row)) continue;
      result = true;
      if ((x == column && Code(x, y) == 11) || Code(x, y) == 1) result = false;
    }
  }
  return result;
}

bool PlainChess::Move(Place source, Place target, int choice) {
  const PlainChess before = *this;
  const int code = Code(source.first, source.second);
  const int captured = Code(target.first, target.second);
  const int colour = code < 10 ? 0 : 1;
  Cell(target.first, target.second) = code;
  Cell(source.first, source.second) = 0;
  if (code == 1 && target == en_passant_[0]) Cell(target.first, target.second - 1) = 0;
  if (code == 11 && target == en_passant_[1]) Cell(target.first, target.second + 1) = 0;
  const Place king = kings_[static_cast<std::size_t>(colour)];
  if (Attacked(king.first, king.second, colour)) {
    *this = before;
    return false;
  }
  Settle(code, source, target);
  if ((code == 1 && target.second == 8) || (code == 11 && target.second == 1)) {
    Cell(target.first, target.second) = (code / 10 * 10) + choice;
  }
  half_moves_ = code == 1 || code == 11 || captured != 0 ? 0 : half_moves_ + 1;
  fen_en_passant_ = {0, 0};
  if (code == 1 && source.second == 2 && target.second == 4) fen_en_passant_ = {source.first, source.first + 1};
  if (code == 11 && source.second == 7 && target.second == 5) fen_en_passant_ = {source.first, 6};
  if (side_ == 1) ++number_;
  side_ = 1 - side_;
  return true;
}

void PlainChess::Settle(int code, Place source, Place target) {
  if (code % 10 == 6) {
    const std::size_t colour = code == 6 ? 0 : 1;
    const int row = code == 6 ? 1 : 8;
    short_rights_[colour] = false;
    long_rights_[colour] = false;
    kings_[colour] = target;
    if (target == CastleShort) {
      Cell(8, row) = 0;
      Cell(6, row) = code - 4;
    }
    if (target == CastleLong) {
      Cell(1, row) = 0;
      Cell(4, row) = code - 4;
    }
  }
  if (code == 2 && source == Place(8, 1)) short_rights_[0] = false;
  if (code == 2 && source == Place(1, 1)) long_rights_[0] = false;
  if (code == 12 && source == Place(8, 8)) short_rights_[1] = false;
  if (code == 12 && source == Place(1, 8)) long_rights_[1] = false;
  en_passant_[code < 10 ? 1 : 0] = {0, 0};
  const int left = target.first - 1;
  const int right = target.first + 1;
  if (code == 1 && source.second == 2 && target.second == 4 && (Code(left, 4) == 11 || Code(right, 4) == 11)) {
    en_passant_[1] = {target.first, 3};
  }
  if (code == 11 && source.second == 7 && target.second == 5 && (Code(left, 5) == 1 || Code(right, 5) == 1)) {
    en_passant_[0] = {target.first, 6};
  }
}

std::string PlainChess::Dump() const {
  std::ostringstream out;
  for (int row = 8; row >= 1; --row) {
    for (int column = 1; column <= 8; ++column) out << Code(column, row) << ' ';
    out << '\n';
  }
  out << short_rights_[0] << long_rights_[0] << short_rights_[1] << long_rights_[1];
  for (const Place& place : {kings_[0], kings_[1], en_passant_[0], en_passant_[1], fen_en_passant_}) {
    out << ' ' << place.first << '/' << place.second;
  }
  out << ' ' << side_ << ' ' << half_moves_ << ' ' << number_ << '\n';
  return out.str();
}

}  // namespace brontavia::test
