#include "games/three_in_row/three_in_row_board.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace brontavia {
namespace {

constexpr Player kServer = Player::Server;
constexpr Player kClient = Player::Client;

std::u16string Shown(const ThreeInRowBoard& board) {
  std::u16string cells;
  for (int cell = 0; cell < kTerCells; ++cell) cells += board.At(cell);
  return cells;
}

// A board with the pieces of `cells`: "X", "O" or "*" for each, row by row.
ThreeInRowBoard BoardOf(std::u16string_view cells) {
  ThreeInRowBoard board;
  for (int cell = 0; cell < kTerCells; ++cell) {
    const char16_t symbol = cells.at(static_cast<std::size_t>(cell));
    if (symbol != u'*') board.Apply(symbol == u'X' ? kServer : kClient, {.Lifted = kNoCell, .Target = cell});
  }
  return board;
}

// `player` places on `cell`, and it is that player's turn again.
void Place(ThreeInRowBoard& board, Player player, int cell) {
  ASSERT_EQ(board.Click(player, cell), TerClick::Moved);
  board.EndMove(player);
  board.BeginMove(player);
}

// The server's board after both have placed three pieces: X in 0, 1, 5 and O in 4, 2, 3.
ThreeInRowBoard MovingBoard() {
  ThreeInRowBoard board;
  for (const int cell : {0, 1, 5}) Place(board, kServer, cell);
  for (const int cell : {4, 2, 3}) board.Apply(kClient, {.Lifted = kNoCell, .Target = cell});
  board.BeginMove(kServer);
  return board;
}

// ---- Start ----

TEST(ThreeInRowBoard, BeginsEmptyAndPlacing) {
  const ThreeInRowBoard board;
  EXPECT_EQ(Shown(board), u"*********");
  EXPECT_TRUE(board.PlacingPhase());
  EXPECT_EQ(board.PosQuitada(), kNoCell);
  EXPECT_EQ(board.PiecesPlaced(kServer), 0);
  EXPECT_EQ(board.PiecesPlaced(kClient), 0);
  EXPECT_FALSE(board.HasLine());
}

TEST(ThreeInRowBoard, ResetBringsTheStartBack) {
  ThreeInRowBoard board = MovingBoard();
  ASSERT_EQ(board.Click(kServer, 0), TerClick::Lifted);
  board.Reset();
  EXPECT_EQ(Shown(board), u"*********");
  EXPECT_TRUE(board.PlacingPhase());
  EXPECT_EQ(board.PosQuitada(), kNoCell);
  EXPECT_EQ(board.PiecesPlaced(kServer), 0);
}

// ---- Placing ----

TEST(Placing, PutsTheOwnSymbolOnAnEmptyCell) {
  for (const Player player : kBothPlayers) {
    for (int cell = 0; cell < kTerCells; ++cell) {
      ThreeInRowBoard board;
      EXPECT_EQ(board.Click(player, cell), TerClick::Moved);
      EXPECT_EQ(board.At(cell), player == kServer ? u'X' : u'O');
      EXPECT_EQ(board.Move(), (TerMove{.Lifted = kNoCell, .Target = cell}));
      EXPECT_EQ(board.PiecesPlaced(player), 1);
      EXPECT_EQ(board.PiecesPlaced(OpponentOf(player)), 0);
    }
  }
}

TEST(Placing, RefusesACellThatIsNotEmpty) {
  ThreeInRowBoard board = BoardOf(u"X***O****");
  for (const int taken : {0, 4}) {
    EXPECT_EQ(board.Click(kServer, taken), TerClick::NotEmpty);
    EXPECT_EQ(Shown(board), u"X***O****");
    EXPECT_EQ(board.PiecesPlaced(kServer), 0);
    EXPECT_TRUE(board.PlacingPhase());
  }
}

TEST(Placing, GoesOnForExactlyThreePieces) {
  ThreeInRowBoard board;
  int placed = 0;
  for (const int cell : {0, 1, 5}) {
    board.BeginMove(kServer);
    EXPECT_TRUE(board.PlacingPhase()) << placed << " placed";
    Place(board, kServer, cell);
    ++placed;
  }
  EXPECT_EQ(board.PiecesPlaced(kServer), 3);
  EXPECT_FALSE(board.PlacingPhase());
  EXPECT_EQ(board.Click(kServer, 8), TerClick::NotOwnPiece);
}

TEST(Placing, OpponentsPiecesDoNotCount) {
  ThreeInRowBoard board;
  for (const int cell : {0, 4, 8, 2}) board.Apply(kClient, {.Lifted = kNoCell, .Target = cell});
  board.BeginMove(kServer);
  EXPECT_TRUE(board.PlacingPhase());
  EXPECT_EQ(board.PiecesPlaced(kClient), 0);
}

TEST(Placing, MayAlreadyWin) {
  ThreeInRowBoard board;
  Place(board, kServer, 0);
  board.Apply(kClient, {.Lifted = kNoCell, .Target = 4});
  Place(board, kServer, 1);
  board.Apply(kClient, {.Lifted = kNoCell, .Target = 8});
  EXPECT_FALSE(board.HasLine());
  ASSERT_EQ(board.Click(kServer, 2), TerClick::Moved);
  EXPECT_TRUE(board.HasLine());
}

// ---- Moving ----

TEST(Moving, LiftsAnOwnPieceAlone) {
  for (int cell = 0; cell < kTerCells; ++cell) {
    ThreeInRowBoard board = MovingBoard();
    const std::u16string before = Shown(board);
    const bool own = board.At(cell) == u'X';
    EXPECT_EQ(board.Click(kServer, cell), own ? TerClick::Lifted : TerClick::NotOwnPiece) << "cell " << cell;
    EXPECT_EQ(board.PlacingPhase(), own);
    EXPECT_EQ(board.PosQuitada(), own ? cell : kNoCell);
    std::u16string expected = before;
    if (own) expected.at(static_cast<std::size_t>(cell)) = u'*';
    EXPECT_EQ(Shown(board), expected);
    EXPECT_EQ(board.PiecesPlaced(kServer), 3);
  }
}

TEST(Moving, PutsTheLiftedPieceOnAnotherEmptyCell) {
  ThreeInRowBoard board = MovingBoard();
  ASSERT_EQ(board.Click(kServer, 5), TerClick::Lifted);
  ASSERT_EQ(board.Click(kServer, 8), TerClick::Moved);
  EXPECT_EQ(board.Move(), (TerMove{.Lifted = 5, .Target = 8}));
  EXPECT_EQ(Shown(board), u"XXOOO***X");
  board.EndMove(kServer);
  EXPECT_EQ(board.PosQuitada(), kNoCell);
  board.BeginMove(kServer);
  EXPECT_FALSE(board.PlacingPhase());
}

TEST(Moving, RefusesToPutTheLiftedPieceOnAnother) {
  ThreeInRowBoard board = MovingBoard();
  ASSERT_EQ(board.Click(kServer, 5), TerClick::Lifted);
  for (const int taken : {0, 1, 2, 3, 4}) EXPECT_EQ(board.Click(kServer, taken), TerClick::NotEmpty);
  EXPECT_EQ(board.PosQuitada(), 5);
  EXPECT_EQ(Shown(board), u"XXOOO****");
}

TEST(Moving, PuttingThePieceBackIsNoMoveAndAPieceMustBeLiftedAgain) {
  ThreeInRowBoard board = MovingBoard();
  const std::u16string before = Shown(board);
  ASSERT_EQ(board.Click(kServer, 5), TerClick::Lifted);
  EXPECT_EQ(board.Click(kServer, 5), TerClick::PutBack);
  EXPECT_EQ(Shown(board), before);
  EXPECT_EQ(board.PosQuitada(), kNoCell);
  EXPECT_FALSE(board.PlacingPhase());
  EXPECT_EQ(board.PiecesPlaced(kServer), 3);
  EXPECT_EQ(board.Click(kServer, 8), TerClick::NotOwnPiece);
  EXPECT_EQ(board.Click(kServer, 0), TerClick::Lifted);
  EXPECT_EQ(board.Click(kServer, 8), TerClick::Moved);
  EXPECT_EQ(board.Move(), (TerMove{.Lifted = 0, .Target = 8}));
}

TEST(Moving, EveryMoveCountsAsAPlacement) {
  ThreeInRowBoard board = MovingBoard();
  for (int moves = 1; moves <= 4; ++moves) {
    const int from = moves % 2 == 1 ? 5 : 8;
    ASSERT_EQ(board.Click(kServer, from), TerClick::Lifted);
    ASSERT_EQ(board.Click(kServer, 13 - from), TerClick::Moved);
    EXPECT_EQ(board.PiecesPlaced(kServer), 3 + moves);
    board.EndMove(kServer);
    board.BeginMove(kServer);
    EXPECT_FALSE(board.PlacingPhase());
  }
}

TEST(Moving, NeverEndsHoweverLongAGameLasts) {
  ThreeInRowBoard board = MovingBoard();
  for (int moves = 0; moves < 70000; ++moves) {
    const int from = moves % 2 == 0 ? 5 : 8;
    ASSERT_EQ(board.Click(kServer, from), TerClick::Lifted) << "after " << moves << " moves";
    ASSERT_EQ(board.Click(kServer, 13 - from), TerClick::Moved);
    board.EndMove(kServer);
    board.BeginMove(kServer);
  }
  EXPECT_EQ(board.PiecesPlaced(kServer), 32767);
}

// ---- The opponent's move ----

TEST(OpponentsMove, IsPutOnTheBoardWithoutJudgement) {
  ThreeInRowBoard board = BoardOf(u"X***O****");
  board.Apply(kClient, {.Lifted = kNoCell, .Target = 0});  // on a piece of ours
  EXPECT_EQ(Shown(board), u"O***O****");
  board.Apply(kClient, {.Lifted = 8, .Target = 7});  // from an empty cell
  EXPECT_EQ(Shown(board), u"O***O**O*");
  board.Apply(kClient, {.Lifted = 4, .Target = 4});  // nowhere
  EXPECT_EQ(Shown(board), u"O***O**O*");
  board.Apply(kServer, {.Lifted = 4, .Target = 3});
  EXPECT_EQ(Shown(board), u"O**X***O*");
}

TEST(OpponentsMove, OutsideTheBoardIsRefused) {
  ThreeInRowBoard board;
  EXPECT_THROW(board.Apply(kClient, {.Lifted = 9, .Target = 0}), std::out_of_range);
  EXPECT_THROW(board.Apply(kClient, {.Lifted = -2, .Target = 0}), std::out_of_range);
  EXPECT_THROW(board.Apply(kClient, {.Lifted = kNoCell, .Target = 9}), std::out_of_range);
  EXPECT_THROW(board.Apply(kClient, {.Lifted = kNoCell, .Target = -1}), std::out_of_range);
  EXPECT_EQ(Shown(board), u"*********");
}

TEST(OwnClick, OutsideTheBoardIsRefused) {
  ThreeInRowBoard board;
  EXPECT_THROW(board.Click(kServer, 9), std::out_of_range);
  EXPECT_THROW(board.Click(kServer, -1), std::out_of_range);
  EXPECT_EQ(Shown(board), u"*********");
}

// ---- Lines ----

using Three = std::array<int, 3>;

struct Position {
  const char* Name;
  std::u16string_view Shown;
  std::optional<Three> Line;
};

void PrintTo(const Position& position, std::ostream* out) { *out << position.Name; }

class Line : public testing::TestWithParam<Position> {};

TEST_P(Line, IsFound) {
  const ThreeInRowBoard board = BoardOf(GetParam().Shown);
  EXPECT_EQ(board.Line(), GetParam().Line);
  EXPECT_EQ(board.HasLine(), GetParam().Line.has_value());
}

constexpr Position kPositions[] = {
    {"TopRow", u"XXX******", Three{0, 1, 2}},
    {"MiddleRow", u"***OOO***", Three{3, 4, 5}},
    {"BottomRow", u"******XXX", Three{6, 7, 8}},
    {"LeftColumn", u"O**O**O**", Three{0, 3, 6}},
    {"MiddleColumn", u"*X**X**X*", Three{1, 4, 7}},
    {"RightColumn", u"**O**O**O", Three{2, 5, 8}},
    {"FallingDiagonal", u"X***X***X", Three{0, 4, 8}},
    {"RisingDiagonal", u"**O*O*O**", Three{2, 4, 6}},
    {"BetweenTheOthersPieces", u"XXXO*OO**", Three{0, 1, 2}},
    {"OfBothPlayers", u"XXX***OOO", Three{0, 1, 2}},
    {"EmptyBoard", u"*********", std::nullopt},
    {"TwoInALine", u"XX*******", std::nullopt},
    {"MixedLine", u"XOX******", std::nullopt},
    {"AroundTheEdge", u"**XX**X**", std::nullopt},
    {"FullBoardWithout", u"XOXXOOOXX", std::nullopt},
};
INSTANTIATE_TEST_SUITE_P(Position, Line, testing::ValuesIn(kPositions),
                         [](const auto& tested) { return std::string(tested.param.Name); });

// ---- Moves as text ----

TEST(MoveText, OfEveryMoveIsReadBack) {
  for (int lifted = kNoCell; lifted < kTerCells; ++lifted) {
    for (int target = 0; target < kTerCells; ++target) {
      const TerMove move{.Lifted = lifted, .Target = target};
      const auto read = ReadTerMove(TerMoveText(move));
      ASSERT_TRUE(read);
      EXPECT_EQ(*read, move);
    }
  }
}

TEST(MoveText, IsInPlainDecimal) {
  EXPECT_EQ(TerMoveText({.Lifted = kNoCell, .Target = 4}), u"-1|4");
  EXPECT_EQ(TerMoveText({.Lifted = 8, .Target = 0}), u"8|0");
}

struct MoveReading {
  const char* Name;
  std::u16string_view Payload;
  std::optional<TerMove> Move;
};

void PrintTo(const MoveReading& reading, std::ostream* out) { *out << reading.Name; }

class ReceivedMove : public testing::TestWithParam<MoveReading> {};

TEST_P(ReceivedMove, IsReadOrRefused) { EXPECT_EQ(ReadTerMove(GetParam().Payload), GetParam().Move); }

constexpr TerMove Placed(int target) { return {.Lifted = kNoCell, .Target = target}; }
constexpr TerMove Moved(int lifted, int target) { return {.Lifted = lifted, .Target = target}; }

constexpr MoveReading kMoveReadings[] = {
    {"Placed", u"-1|4", Placed(4)},
    {"Moved", u"5|8", Moved(5, 8)},
    {"WinningMessageInTheSameRead", u"-1|2Haganado|0", Placed(2)},
    {"BlanksInside", u" - 1 | 4 ", Placed(4)},
    {"OtherNegativeIsNoCell", u"-7|4", Placed(4)},
    {"FarNegativeIsNoCell", u"-1e300|4", Placed(4)},
    {"LiftedIsNoNumber", u"abc|4", Moved(0, 4)},
    {"LiftedIsMissing", u"|4", Moved(0, 4)},
    {"TargetIsNoNumber", u"-1|abc", Placed(0)},
    {"TargetIsMissing", u"-1|", Placed(0)},
    {"ThirdFieldIsNotRead", u"-1|4|7", Placed(4)},
    {"SecondBarEndsTheTarget", u"-1||4", Placed(0)},
    {"NoBar", u"-14", std::nullopt},
    {"Nothing", u"", std::nullopt},
    {"Binary", u"\u0001\u00ff\u0000", std::nullopt},
    {"LiftedBehindTheLast", u"9|4", std::nullopt},
    {"LiftedFarBehind", u"1e300|4", std::nullopt},
    {"TargetBehindTheLast", u"-1|9", std::nullopt},
    {"TargetFarBehind", u"-1|99999999999999999999", std::nullopt},
    {"TargetNegative", u"-1|-1", std::nullopt},
    {"DigitsRunTogether", u"-1|44", std::nullopt},
};
INSTANTIATE_TEST_SUITE_P(Payload, ReceivedMove, testing::ValuesIn(kMoveReadings),
                         [](const auto& tested) { return std::string(tested.param.Name); });

// ---- Random games against a second, plainer implementation ----

// One player's copy, told step by step; nothing in it is shared with ThreeInRowBoard.
struct PlainCopy {
  std::string Cells = "*********";
  bool Placing = true;
  int Quitada = -1;
  int Placed = 0;

  enum Result { kNotEmpty, kNotOwn, kLifted, kPutBack, kMoved };

  Result Click(char own, std::size_t cell) {
    if (Placing && Cells[cell] != '*') return kNotEmpty;
    if (!Placing && Quitada == -1 && Cells[cell] != own) return kNotOwn;
    if (!Placing) {
      Quitada = static_cast<int>(cell);
      Cells[cell] = '*';
      Placing = true;
      return kLifted;
    }
    Cells[cell] = own;
    if (static_cast<int>(cell) == Quitada) {
      Quitada = -1;
      Placing = false;
      return kPutBack;
    }
    ++Placed;
    return kMoved;
  }

  [[nodiscard]] bool Won() const {
    const auto line = [this](int a, int b, int c) {
      const auto at = [this](int cell) { return Cells[static_cast<std::size_t>(cell)]; };
      return at(a) != '*' && at(a) == at(b) && at(b) == at(c);
    };
    return line(0, 1, 2) || line(3, 4, 5) || line(6, 7, 8) || line(0, 3, 6) || line(1, 4, 7) || line(2, 5, 8) ||
           line(0, 4, 8) || line(2, 4, 6);
  }
};

constexpr std::array<TerClick, 5> kOutcomeOf{TerClick::NotEmpty, TerClick::NotOwnPiece, TerClick::Lifted,
                                             TerClick::PutBack, TerClick::Moved};

// Both players' copies, each kept twice.
class RandomGame {
 public:
  // Plays until someone wins or `clicks` are over. Returns at the first difference, which the test then reports.
  void Play(std::mt19937& random, int clicks) {
    std::uniform_int_distribution<int> any_cell(0, kTerCells - 1);
    while (clicks-- > 0 && !testing::Test::HasFailure()) {
      const int cell = any_cell(random);
      history_ += std::to_string(NumberOf(mover_)) + "@" + std::to_string(cell) + " ";
      if (ClickBoth(cell)) return;
    }
  }

  [[nodiscard]] const std::string& History() const { return history_; }

 private:
  // Returns whether the click has won.
  bool ClickBoth(int cell) {
    ThreeInRowBoard& board = boards_[mover_];
    PlainCopy& plain = plain_[mover_];
    const auto expected = plain.Click(mover_ == kServer ? 'X' : 'O', static_cast<std::size_t>(cell));
    EXPECT_EQ(board.Click(mover_, cell), kOutcomeOf.at(expected));
    Compare();
    EXPECT_EQ(board.HasLine(), plain.Won());
    if (expected != PlainCopy::kMoved) return false;
    PassMove(board.Move(), cell);
    if (plain.Won()) return true;
    board.EndMove(mover_);
    plain.Quitada = -1;
    mover_ = OpponentOf(mover_);
    boards_[mover_].BeginMove(mover_);
    plain_[mover_].Placing = plain_[mover_].Placed <= 2;
    Compare();
    return false;
  }

  // The other copy hears of the move.
  void PassMove(TerMove move, int cell) {
    const Player other = OpponentOf(mover_);
    EXPECT_EQ(move, (TerMove{.Lifted = plain_[mover_].Quitada, .Target = cell}));
    const auto received = ReadTerMove(TerMoveText(move));
    ASSERT_TRUE(received);
    boards_[other].Apply(mover_, *received);
    plain_[other].Cells = plain_[mover_].Cells;
  }

  void Compare() const {
    for (const Player copy : kBothPlayers) {
      const ThreeInRowBoard& board = boards_[copy];
      const PlainCopy& plain = plain_[copy];
      EXPECT_EQ(Shown(board), std::u16string(plain.Cells.begin(), plain.Cells.end()));
      EXPECT_EQ(board.PiecesPlaced(copy), plain.Placed);
      EXPECT_EQ(board.PosQuitada(), plain.Quitada);
    }
    EXPECT_EQ(boards_[mover_].PlacingPhase(), plain_[mover_].Placing);
  }

  PerPlayer<ThreeInRowBoard> boards_;
  PerPlayer<PlainCopy> plain_;
  Player mover_ = kServer;
  std::string history_;
};

TEST(RandomGames, AgreeWithAPlainerImplementationAfterEveryClick) {
  constexpr unsigned kSeed = 20240607;
  constexpr int kGames = 3000;
  constexpr int kMostClicks = 300;
  std::mt19937 random(kSeed);
  for (int game = 0; game < kGames; ++game) {
    RandomGame played;
    played.Play(random, kMostClicks);
    ASSERT_FALSE(HasFailure()) << "seed " << kSeed << ", game " << game << ", player@cell: " << played.History();
  }
}

}  // namespace
}  // namespace brontavia
