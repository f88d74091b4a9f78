// A second implementation of the rules of chess for random comparisons: plain numbers, and for every square the
// question whether a piece can go there instead of a walk from the piece.
#pragma once

#include <array>
#include <bitset>
#include <ostream>
#include <string>
#include <utility>

#include "games/chess/chess_position.h"

namespace brontavia::test {

class PlainChess {
 public:
  using Place = std::pair<int, int>;  // column, row
  using Places = std::bitset<100>;    // by IndexOf

  static std::size_t IndexOf(int column, int row) {
    return static_cast<std::size_t>(column) + (10 * static_cast<std::size_t>(row));
  }

  explicit PlainChess(const ChessPosition& position);

  // Whether the piece `code` on (x, y) can go to (column, row), castling aside.
  [[nodiscard]] bool Reaches(int x, int y, int code, int column, int row) const;
  // All of that, castling included, which also sets CastleShort and CastleLong for a king.
  Places Targets(int x, int y);
  // `lifted` with a column of -1 lifts nothing.
  [[nodiscard]] bool Attacked(int column, int row, int colour, Place lifted = {-1, -1}) const;
  // Moves; false, and nothing changes, when the own king would be attacked. `choice` is for a pawn that arrives.
  bool Move(Place source, Place target, int choice);

  // Every number, for comparison.
  [[nodiscard]] std::string Dump() const;

  Place CastleShort{};
  Place CastleLong{};

 private:
  [[nodiscard]] int Code(int column, int row) const;
  int& Cell(int column, int row);
  // -1 none, 0 white, 1 black.
  [[nodiscard]] int Colour(int column, int row) const;
  [[nodiscard]] bool ClearBetween(int x, int y, int column, int row) const;
  [[nodiscard]] bool PawnReaches(int x, int y, int colour, int column, int row) const;
  bool MayCastle(int colour, bool is_short) const;
  void Settle(int code, Place source, Place target);

  std::array<int, 100> cells_{};  // by IndexOf
  std::array<bool, 2> short_rights_{};
  std::array<bool, 2> long_rights_{};
  std::array<Place, 2> kings_{};
  std::array<Place, 2> en_passant_{};
  Place fen_en_passant_{};
  int side_ = 0;
  int half_moves_ = 0;
  int number_ = 0;
};

}  // namespace brontavia::test
