#include "games/strategy/movement.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <string>
#include <utility>

#include "tests/games/strategy/strategy_cells.h"

namespace brontavia::test {
namespace {

struct Standing {
  std::string_view Cell;
  CellCode Code = kEmptyLand;
};

StrategyBoard BoardWith(const StrategyVariant& variant, const std::vector<Standing>& pieces) {
  StrategyBoard board(variant);
  for (const Standing& piece : pieces) board.Set(Cell(piece.Cell), piece.Code);
  return board;
}

// ---- How far a piece goes ----

struct ScoutMove {
  std::string_view What;
  std::string_view From;
  std::string_view To;
  MoveRange Expected;
  std::vector<Standing> Others;
};
const ScoutMove kScoutMoves[] = {
    {"one cell", "A4", "A5", MoveRange::Valid, {}},
    {"up the whole board", "A1", "A10", MoveRange::Valid, {}},
    {"down the whole board", "J10", "J1", MoveRange::Valid, {}},
    {"right across the board", "A4", "J4", MoveRange::Valid, {}},
    {"left across the board", "J7", "A7", MoveRange::Valid, {}},
    {"at a piece beside it", "A4", "A5", MoveRange::Valid, {{"A5", 112}}},
    {"at a piece far away", "A4", "A9", MoveRange::Valid, {{"A9", 112}}},
    {"at its own piece far away, which is for others to refuse", "A4", "E4", MoveRange::Valid, {{"E4", 7}}},
    {"past an enemy", "A4", "A9", MoveRange::Blocked, {{"A6", 112}}},
    {"past an enemy beside it", "A4", "A9", MoveRange::Blocked, {{"A5", 101}}},
    {"past an enemy beside its target", "A4", "A9", MoveRange::Blocked, {{"A8", 103}, {"A9", 112}}},
    {"past an own piece", "J4", "A4", MoveRange::Blocked, {{"B4", 2}}},
    {"past a revealed bomb", "A9", "A4", MoveRange::Blocked, {{"A6", 113}}},
    {"past an own revealed bomb", "A9", "A4", MoveRange::Blocked, {{"A5", 13}}},
    {"over water, up", "C4", "C7", MoveRange::Blocked, {}},
    {"over water, across", "F5", "I5", MoveRange::Blocked, {}},
    {"over water to a piece", "E6", "B6", MoveRange::Blocked, {{"B6", 104}}},
    {"into water, which is for others to refuse", "C4", "C5", MoveRange::Valid, {}},
    {"into water behind water", "C4", "C6", MoveRange::Blocked, {}},
    {"between two lakes", "E5", "F5", MoveRange::Valid, {}},
    {"up to what stands behind the target", "A4", "A6", MoveRange::Valid, {{"A7", 112}}},
    {"away from what stands behind it", "A4", "A6", MoveRange::Valid, {{"A3", 9}}},
    {"past what stands beside its way", "A4", "A6", MoveRange::Valid, {{"B5", 112}, {"B4", 2}}},
    {"nowhere", "A4", "A4", MoveRange::Valid, {}},
    {"one cell diagonally", "A4", "B5", MoveRange::Diagonal, {}},
    {"far diagonally", "J10", "A1", MoveRange::Diagonal, {}},
    {"like a knight", "E1", "F3", MoveRange::Diagonal, {}},
    {"diagonally, which is told before what is in the way", "A4", "C6", MoveRange::Diagonal, {{"B5", 112}}},
};

TEST(Scout, MovesAnyDistanceInAFreeStraightLine) {
  for (const ScoutMove& tested : kScoutMoves) {
    for (const Player side : kBothPlayers) {
      StrategyBoard board = BoardWith(kEstratega, tested.Others);
      board.Set(Cell(tested.From), CodeOf({side, Rank::Scout}));
      EXPECT_EQ(CheckMoveRange(board, Rank::Scout, Cell(tested.From), Cell(tested.To)), tested.Expected)
          << tested.What << ", side " << NumberOf(side);
    }
  }
}

TEST(OtherPieces, MoveOneCellAndNotDiagonally) {
  for (const int number : {3, 5, 6, 7, 8, 9, 10, 11, 12}) {
    const Rank rank = RankNumbered(number);
    for (const auto& [name, variant] : kVariants) {
      const StrategyBoard board(variant);
      const Coordinate from = Cell("C3");
      std::vector<Coordinate> reached;
      for (const Coordinate to : AllCells(variant)) {
        const MoveRange range = CheckMoveRange(board, rank, from, to);
        EXPECT_TRUE(range == MoveRange::Valid || range == MoveRange::TooFar);
        if (range == MoveRange::Valid) reached.push_back(to);
      }
      // Its own cell too, although nobody moves there.
      EXPECT_EQ(reached, (std::vector{Cell("C2"), Cell("B3"), Cell("C3"), Cell("D3"), Cell("C4")}))
          << name << ", rank " << number;
    }
  }
}

TEST(OtherPieces, ReachTheNextCellWhateverStandsThere) {
  for (const CellCode code : {kWaterCell, CodeOf({Player::Server, Rank::Flag}),
                              CodeOf({Player::Client, Rank::RevealedBomb}), CodeOf({Player::Client, Rank::Marshal})}) {
    const StrategyBoard board = BoardWith(kEstratega, {{"B4", code}});
    EXPECT_EQ(CheckMoveRange(board, Rank::Miner, Cell("A4"), Cell("B4")), MoveRange::Valid) << code;
  }
}

// ---- Who can move ----

struct Position {
  std::string_view What;
  std::vector<Standing> Pieces;  // side 0 looks for a piece to move
  std::optional<std::string_view> Found;
};
const Position kPositions[] = {
    {"no piece at all", {}, std::nullopt},
    {"only the opponent's pieces", {{"A1", 104}, {"E5", 112}}, std::nullopt},
    {"only flag and bombs", {{"A1", 1}, {"B1", 2}, {"C1", 13}}, std::nullopt},
    {"one piece alone", {{"E5", 3}}, "E5"},
    {"the column counts before the row", {{"A9", 5}, {"B1", 12}}, "A9"},
    {"the lower row of a column", {{"D2", 7}, {"D9", 8}}, "D2"},
    {"walled in by its own pieces", {{"A1", 12}, {"A2", 2}, {"B1", 1}}, std::nullopt},
    {"in a corner with a way out to the right", {{"A1", 12}, {"A2", 2}}, "A1"},
    {"in a corner with a way out upwards", {{"A1", 12}, {"B1", 2}}, "A1"},
    {"in the last corner with a way out to the left", {{"J10", 12}, {"J9", 2}}, "J10"},
    {"in the last corner with a way out downwards", {{"J10", 12}, {"I10", 2}}, "J10"},
    {"in the last corner, walled in", {{"J10", 12}, {"J9", 2}, {"I10", 13}}, std::nullopt},
    {"walled in by enemies, which can be attacked", {{"A1", 4}, {"A2", 102}, {"B1", 112}}, "A1"},
    {"beside nothing but a revealed enemy bomb", {{"A1", 4}, {"A2", 113}, {"B1", 2}}, "A1"},
    {"beside nothing but an enemy flag", {{"A1", 4}, {"A2", 2}, {"B1", 101}}, "A1"},
    {"beside water and own pieces", {{"C4", 4}, {"B4", 2}, {"D4", 2}, {"C3", 2}}, std::nullopt},
    {"between two lakes and own bombs", {{"E5", 9}, {"E4", 2}, {"E6", 2}, {"F5", 2}}, std::nullopt},
    {"only diagonally beside land", {{"A1", 12}, {"A2", 2}, {"B1", 2}, {"A3", 2}, {"C1", 2}}, std::nullopt},
    {"the walled-in one is passed over", {{"A1", 12}, {"A2", 2}, {"B1", 11}}, "B1"},
};

TEST(MovablePiece, IsTheFirstWithLandOrAnEnemyBesideIt) {
  for (const Position& tested : kPositions) {
    // For the other side the same position with the armies exchanged.
    for (const Player side : kBothPlayers) {
      StrategyBoard board(kEstratega);
      for (const auto& [cell, code] : tested.Pieces) {
        board.Set(Cell(cell), CodeOf({code < 100 ? side : OpponentOf(side), RankNumbered(code % 100)}));
      }
      std::optional<Coordinate> expected;
      if (tested.Found) expected = Cell(*tested.Found);
      EXPECT_EQ(FindMovablePiece(board, side), expected) << tested.What << ", side " << NumberOf(side);
    }
  }
}

TEST(MovablePiece, IsFoundForEveryRankThatMoves) {
  for (int rank = 1; rank <= 13; ++rank) {
    const StrategyBoard board = BoardWith(kMiniEstratega, {{"G8", CodeOf({Player::Client, RankNumbered(rank)})}});
    EXPECT_EQ(FindMovablePiece(board, Player::Client).has_value(), rank >= 3 && rank <= 12) << rank;
  }
}

// ---- A second implementation, on random boards ----

bool LiesBetween(Coordinate cell, Coordinate a, Coordinate b) {
  const auto inside = [](int value, int end, int other_end) {
    return value > std::min(end, other_end) && value < std::max(end, other_end);
  };
  const bool in_column = cell.Column == a.Column && cell.Column == b.Column && inside(cell.Row, a.Row, b.Row);
  const bool in_row = cell.Row == a.Row && cell.Row == b.Row && inside(cell.Column, a.Column, b.Column);
  return in_column || in_row;
}

// Looks at the whole board for something in between, where the tested one walks from cell to cell.
MoveRange PlainMoveRange(const StrategyBoard& board, Rank rank, Coordinate from, Coordinate to) {
  const int columns = to.Column - from.Column;
  const int rows = to.Row - from.Row;
  if (rank != Rank::Scout) return columns * columns + rows * rows <= 1 ? MoveRange::Valid : MoveRange::TooFar;
  if (columns * rows != 0) return MoveRange::Diagonal;
  for (const Coordinate cell : AllCells(board.Variant())) {
    if (LiesBetween(cell, from, to) && board.At(cell) != 0) return MoveRange::Blocked;
  }
  return MoveRange::Valid;
}

// Goes out from every cell that can be entered to the pieces beside it, and takes the first of them all.
std::optional<Coordinate> PlainMovablePiece(const StrategyBoard& board, Player side) {
  std::map<std::pair<int, int>, int> ranks;  // of the own pieces, by column and row
  std::set<std::pair<int, int>> beside_an_entry;
  for (const auto [column, row] : AllCells(board.Variant())) {
    const int code = board.At({.Column = column, .Row = row});
    const bool own = code > 0 && code / 100 == NumberOf(side);
    if (own) ranks[{column, row}] = code % 100;
    if (own || code == -1) continue;
    beside_an_entry.insert({{column - 1, row}, {column + 1, row}, {column, row - 1}, {column, row + 1}});
  }
  for (const auto& [cell, rank] : ranks) {
    if (rank < 3 || rank > 12 || !beside_an_entry.contains(cell)) continue;
    return Coordinate{.Column = cell.first, .Row = cell.second};
  }
  return std::nullopt;
}

class RandomBoards {
 public:
  explicit RandomBoards(unsigned seed) : random_(seed) {}

  // From nearly empty to full, from one army alone to both, from bombs alone to movable pieces alone.
  StrategyBoard Board(const StrategyVariant& variant) {
    const int filled = OneOf({5, 30, 60, 95, 100});
    const int red = OneOf({0, 5, 50, 95, 100});
    const int movable = OneOf({0, 3, 50, 100});
    StrategyBoard board(variant);
    for (const Coordinate cell : AllCells(variant)) {
      if (board.At(cell) != kEmptyLand || !Chance(filled)) continue;
      board.Set(cell, CodeOf({Chance(red) ? Player::Server : Player::Client,
                              RankNumbered(Chance(movable) ? Between(3, 12) : OneOf({1, 2, 13}))}));
    }
    return board;
  }

  Coordinate CellOf(const StrategyVariant& variant) {
    return {.Column = Between(1, variant.Columns), .Row = Between(1, variant.Rows)};
  }

  // Mostly in a line with `from` or beside it: of all cells few are.
  Coordinate TargetFrom(Coordinate from, const StrategyVariant& variant) {
    Coordinate to = CellOf(variant);
    switch (Between(0, 3)) {
      case 0:
        to.Column = from.Column;
        break;
      case 1:
        to.Row = from.Row;
        break;
      case 2:
        to.Column = std::clamp(from.Column + Between(-1, 1), 1, variant.Columns);
        to.Row = std::clamp(from.Row + Between(-1, 1), 1, variant.Rows);
        break;
      default:
        break;
    }
    return to;
  }

  int Between(int lowest, int highest) { return std::uniform_int_distribution(lowest, highest)(random_); }
  int OneOf(const std::vector<int>& values) {
    return values[static_cast<std::size_t>(Between(0, static_cast<int>(values.size()) - 1))];
  }

 private:
  bool Chance(int percent) { return Between(1, 100) <= percent; }

  std::mt19937 random_;
};

std::string Picture(const StrategyBoard& board) {
  std::string picture;
  for (int row = board.Variant().Rows; row >= 1; --row) {
    picture += '\n';
    for (int column = 1; column <= board.Variant().Columns; ++column) {
      picture += std::to_string(board.At({.Column = column, .Row = row})) + ' ';
    }
  }
  return picture;
}

constexpr unsigned kSeeds = 40;
constexpr int kBoardsPerSeed = 500;
constexpr int kMovesPerBoard = 6;

TEST(RandomMoves, GoAsFarAsThePlainRulesSay) {
  for (const auto& [name, variant] : kVariants) {
    std::map<MoveRange, int> seen;
    for (unsigned seed = 1; seed <= kSeeds; ++seed) {
      SCOPED_TRACE(testing::Message() << name << ", seed " << seed);
      RandomBoards random(seed);
      for (int move = 0; move < kBoardsPerSeed * kMovesPerBoard; ++move) {
        const Rank rank = RankNumbered(random.Between(0, 1) == 0 ? 4 : random.Between(3, 12));
        StrategyBoard board = random.Board(variant);
        const Coordinate from = random.CellOf(variant);
        const Coordinate to = random.TargetFrom(from, variant);
        board.Set(from, CodeOf({random.Between(0, 1) == 0 ? Player::Server : Player::Client, rank}));
        const MoveRange range = CheckMoveRange(board, rank, from, to);
        ASSERT_EQ(range, PlainMoveRange(board, rank, from, to))
            << "rank " << NumberOf(rank) << " from " << testing::PrintToString(from) << " to "
            << testing::PrintToString(to) << Picture(board);
        ++seen[range];
      }
    }
    for (const MoveRange range : {MoveRange::Valid, MoveRange::Diagonal, MoveRange::Blocked, MoveRange::TooFar}) {
      EXPECT_GT(seen[range], 1000) << name << ", " << static_cast<int>(range) << " is hardly tested";
    }
  }
}

TEST(RandomBoards, HaveTheMovablePieceThatThePlainRulesFind) {
  for (const auto& [name, variant] : kVariants) {
    int found = 0;
    int none = 0;
    std::set<std::pair<int, int>> places;
    for (unsigned seed = 1; seed <= kSeeds; ++seed) {
      SCOPED_TRACE(testing::Message() << name << ", seed " << seed);
      RandomBoards random(seed);
      for (int i = 0; i < kBoardsPerSeed; ++i) {
        const StrategyBoard board = random.Board(variant);
        for (const Player side : kBothPlayers) {
          const auto cell = FindMovablePiece(board, side);
          ASSERT_EQ(cell, PlainMovablePiece(board, side))
              << "board " << i << ", side " << NumberOf(side) << Picture(board);
          ++(cell ? found : none);
          if (cell) places.emplace(cell->Column, cell->Row);
        }
      }
    }
    EXPECT_GT(found, 1000) << name;
    EXPECT_GT(none, 1000) << name;
    EXPECT_GT(places.size(), 25U) << name << ": always the same cells";
  }
}

}  // namespace
}  // namespace brontavia::test
