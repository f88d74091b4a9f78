#include "games/chess/chess_game.h"

#include <gtest/gtest.h>

#include <ostream>
#include <stdexcept>
#include <string>

#include "games/chess/attack.h"
#include "games/chess/position_line.h"
#include "tests/games/chess/chess_places.h"

namespace brontavia {

void PrintTo(ChessClick click, std::ostream* out) {
  constexpr const char* kNames[] = {"Nothing",    "PickedUp",     "OtherSide", "Dropped",
                                    "NotATarget", "KingAttacked", "Moved"};
  *out << kNames[static_cast<std::size_t>(click)];
}

namespace test {
namespace {

class Game : public testing::Test {
 protected:
  ChessClick Click(std::string_view square, bool free_mode = false) {
    const ChessClickOutcome outcome = game_.Click(Square(square), free_mode);
    EXPECT_EQ(outcome.What == ChessClick::Moved, outcome.Move.has_value());
    return outcome.What;
  }

  void Move(std::string_view source, std::string_view target) {
    ASSERT_EQ(Click(source), ChessClick::PickedUp);
    ChessClickOutcome outcome = game_.Click(Square(target), false);
    ASSERT_EQ(outcome.What, ChessClick::Moved);
    game_.CompleteMove(outcome.Move.value());
    game_.PassTurn();
  }

  // An empty board with `pieces` put on it one after the other.
  void Place(std::string_view pieces) {
    game_.EmptyBoard();
    const ChessPosition position = Placed(pieces);
    for (int column = 1; column <= kBoardSide; ++column) {
      for (int row = 1; row <= kBoardSide; ++row) {
        if (const int piece = position.Board.At({column, row}); piece != kNoPiece) game_.Put({column, row}, piece);
      }
    }
  }

  void ExpectNothingPickedUp() {
    EXPECT_FALSE(game_.HasSelection());
    EXPECT_EQ(game_.Selection(), ChessSelection{});
    EXPECT_EQ(game_.Targets().size(), 0U);
    EXPECT_EQ(game_.CastleTargets(), CastleTargets{});
  }

  [[nodiscard]] const ChessPosition& Position() const { return game_.Position(); }

  ChessGame game_;
};

TEST_F(Game, BeginsAtTheStartWithNothingPickedUp) {
  EXPECT_EQ(Position(), StartPosition());
  ExpectNothingPickedUp();
}

// ---- First click ----

TEST_F(Game, IgnoresAnEmptySquare) {
  EXPECT_EQ(Click("e4"), ChessClick::Nothing);
  EXPECT_EQ(Click("e4", true), ChessClick::Nothing);
  ExpectNothingPickedUp();
}

TEST_F(Game, PicksUpAPieceOfTheSideToMove) {
  EXPECT_EQ(Click("b1"), ChessClick::PickedUp);
  EXPECT_EQ(game_.Selection(), (ChessSelection{.Source = Square("b1"), .Piece = kKnight}));
  EXPECT_EQ(game_.Targets().size(), 2U);
  EXPECT_TRUE(game_.Targets().Holds(Square("a3")));
  EXPECT_TRUE(game_.Targets().Holds(Square("c3")));
}

TEST_F(Game, LeavesThePiecesOfTheOtherSide) {
  EXPECT_EQ(Click("b8"), ChessClick::OtherSide);
  ExpectNothingPickedUp();
  Move("e2", "e4");
  EXPECT_EQ(Click("b1"), ChessClick::OtherSide);
  EXPECT_EQ(Click("b8"), ChessClick::PickedUp);
}

TEST_F(Game, PicksUpAnyPieceInFreeMode) {
  EXPECT_EQ(Click("b8", true), ChessClick::PickedUp);
  EXPECT_EQ(Click("c6", true), ChessClick::Moved);
}

// ---- Second click ----

TEST_F(Game, DropsThePieceOnItsOwnSquare) {
  Click("b1");
  EXPECT_EQ(Click("b1"), ChessClick::Dropped);
  ExpectNothingPickedUp();
  EXPECT_EQ(Position(), StartPosition());
}

TEST_F(Game, KeepsThePieceWhenItCannotGoThere) {
  Click("b1");
  for (const char* square : {"b3", "d2", "a1", "b8"}) EXPECT_EQ(Click(square), ChessClick::NotATarget) << square;
  EXPECT_EQ(game_.Selection().Source, Square("b1"));
  EXPECT_EQ(Click("c3"), ChessClick::Moved);
}

TEST_F(Game, PutsThePieceDownWhenItsKingWouldBeAttacked) {
  Place("Ke1 Be2 re8");
  const ChessPosition before = Position();
  Click("e2");
  EXPECT_EQ(Click("d3"), ChessClick::KingAttacked);
  ExpectNothingPickedUp();
  EXPECT_EQ(Position(), before);
}

TEST_F(Game, HandsTheMoveOutAndKeepsTheTurnUntilItIsPassed) {
  Click("e2");
  ChessClickOutcome outcome = game_.Click(Square("e4"), false);
  ASSERT_TRUE(outcome.Move);
  ExpectNothingPickedUp();
  EXPECT_EQ(outcome.Move->Target, Square("e4"));
  EXPECT_EQ(Position().SideToMove, Colour::White);
  game_.CompleteMove(*outcome.Move);
  EXPECT_EQ(Position().SideToMove, Colour::White);
  EXPECT_EQ(Position().FenEnPassant, (Coordinate{5, 6}));
  game_.PassTurn();
  EXPECT_EQ(Position().SideToMove, Colour::Black);
}

TEST_F(Game, CastlesWithTwoClicks) {
  Place("Ke1 Rh1 ke8");
  Click("e1");
  EXPECT_EQ(game_.CastleTargets().Short, Square("g1"));
  EXPECT_EQ(Click("g1"), ChessClick::Moved);
  EXPECT_EQ(Position().Board, Placed("Kg1 Rf1 ke8").Board);
}

TEST_F(Game, PromotesToWhatIsChosen) {
  Place("Pe7 kh1 Ka1");
  Click("e7");
  ChessClickOutcome outcome = game_.Click(Square("e8"), false);
  ASSERT_TRUE(outcome.Move);
  EXPECT_TRUE(outcome.Move->PromotionPending);
  game_.CompleteMove(*outcome.Move, kKnight);
  EXPECT_EQ(Position().Board.At(Square("e8")), kKnight);
}

TEST_F(Game, DropsThePieceOnDemand) {
  Click("e2");
  game_.DropSelection();
  ExpectNothingPickedUp();
  EXPECT_EQ(Click("e4"), ChessClick::Nothing);
}

TEST_F(Game, KeepsTheTargetsOfThePickedUpPieceWhenAttacksAreAsked) {
  Place("Ke1 Rh1 ke8 rh8");
  Click("e1");
  const CastleTargets castles = game_.CastleTargets();
  const std::size_t targets = game_.Targets().size();
  EXPECT_FALSE(IsKingAttacked(Position(), Colour::Black));
  EXPECT_EQ(game_.CastleTargets(), castles);
  EXPECT_EQ(game_.Targets().size(), targets);
}

// ---- Beginning again, and positions from elsewhere ----

TEST_F(Game, BeginsAgain) {
  Move("e2", "e4");
  Click("e7");
  game_.StartNewGame();
  EXPECT_EQ(Position(), StartPosition());
  ExpectNothingPickedUp();
}

TEST_F(Game, GoesOnFromAPosition) {
  Click("e2");
  const ChessPosition position = Placed("Kb1 kd5");
  const int set_up = game_.PositionsSetUp();
  game_.Load(position);
  EXPECT_EQ(Position(), position);
  EXPECT_EQ(game_.PositionsSetUp(), set_up + 1);
  ExpectNothingPickedUp();
}

// ---- Editing ----

TEST_F(Game, PutsAPieceInPlaceOfAnother) {
  game_.Put(Square("d1"), PieceOf(kRook, Colour::Black));
  EXPECT_EQ(Position().Board.At(Square("d1")), 12);
  game_.Put(Square("d1"), kNoPiece);
  EXPECT_EQ(Position().Board.At(Square("d1")), 0);
}

TEST_F(Game, PutsNothingOffTheBoard) {
  EXPECT_THROW(game_.Put({}, kQueen), std::out_of_range);
  EXPECT_THROW(game_.Put({9, 9}, kNoPiece), std::out_of_range);
  EXPECT_EQ(Position(), StartPosition());
}

TEST_F(Game, FindsTheKingsAfterAnEdit) {
  game_.Put(Square("e1"), kNoPiece);
  EXPECT_EQ(Position().KingSquares.White, std::nullopt);
  game_.Put(Square("h4"), PieceOf(kKing, Colour::White));
  EXPECT_EQ(Position().KingSquares.White, Square("h4"));
  game_.Put(Square("a4"), PieceOf(kKing, Colour::Black));
  EXPECT_EQ(Position().KingSquares.Black, Square("a4"));
}

TEST_F(Game, EmptiesTheBoardAndNothingElse) {
  Move("e2", "e4");
  ChessPosition expected = Position();
  expected.Board = {};
  game_.EmptyBoard();
  EXPECT_EQ(Position(), expected);
  EXPECT_EQ(PositionLine(Position()), u"8/8/8/8/8/8/8/8/N RDrd e6 0 1");
}

TEST_F(Game, KeepsThePickedUpPieceAndItsTargetsWhenThePositionIsEdited) {
  Click("b1");
  game_.Put(Square("c3"), PieceOf(kPawn, Colour::White));
  EXPECT_EQ(game_.Selection().Source, Square("b1"));
  EXPECT_TRUE(game_.Targets().Holds(Square("c3")));
}

TEST_F(Game, SettlesCastlingAnewWhenThePositionIsEdited) {
  Place("Ke1 Ra1 Rh1");
  Click("e1");
  game_.Put(Square("g1"), kKnight);
  EXPECT_EQ(game_.CastleTargets(), (CastleTargets{.Short = {}, .Long = Square("c1")}));
  game_.Put(Square("d8"), PieceOf(kRook, Colour::Black));
  EXPECT_EQ(game_.CastleTargets(), CastleTargets{});
  game_.Put(Square("d8"), kNoPiece);
  game_.Put(Square("g1"), kNoPiece);
  EXPECT_EQ(game_.CastleTargets(), (CastleTargets{.Short = Square("g1"), .Long = Square("c1")}));
}

TEST_F(Game, TakesCountersAndTurnWithinTheirRanges) {
  EXPECT_TRUE(game_.SetMoveNumber(12));
  game_.SetSideToMove(Colour::Black);
  EXPECT_TRUE(game_.SetHalfMoveClock(3));
  const auto expect_unchanged = [this] {
    EXPECT_EQ(Position().MoveNumber, 12);
    EXPECT_EQ(Position().SideToMove, Colour::Black);
    EXPECT_EQ(Position().HalfMoveClock, 3);
  };
  expect_unchanged();
  constexpr std::int16_t kBelowZero[] = {-1, -32768};
  EXPECT_FALSE(game_.SetMoveNumber(0));
  for (const std::int16_t number : kBelowZero) EXPECT_FALSE(game_.SetMoveNumber(number)) << number;
  for (const std::int16_t half_moves : kBelowZero) EXPECT_FALSE(game_.SetHalfMoveClock(half_moves)) << half_moves;
  expect_unchanged();
  EXPECT_TRUE(game_.SetMoveNumber(1));
  game_.SetSideToMove(Colour::White);
  EXPECT_TRUE(game_.SetHalfMoveClock(0));
  EXPECT_EQ(Position(), StartPosition());
}

}  // namespace
}  // namespace test
}  // namespace brontavia
