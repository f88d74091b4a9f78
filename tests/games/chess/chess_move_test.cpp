#include "games/chess/chess_move.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <string>

#include "tests/games/chess/chess_places.h"

namespace brontavia::test {
namespace {

// What is left to do of a move: nothing is picked up, everything in place but counters and turn.
std::optional<ChessMove> Try(ChessPosition& position, std::string_view move) {
  const ChessSelection selection = Pick(position, move.substr(0, 2));
  return ApplyMove(position, selection, Square(move.substr(2)), GenerateTargets(position, selection).Castles);
}

// ---- The piece itself ----

TEST(Move, TakesThePieceToItsTarget) {
  ChessPosition position = Placed("Ke1 Nb1");
  const ChessMove move = Make(position, "b1c3");
  EXPECT_EQ(position.Board, Placed("Ke1 Nc3").Board);
  EXPECT_EQ(move, (ChessMove{.Moved = {.Source = Square("b1"), .Piece = kKnight}, .Target = Square("c3")}));
}

TEST(Move, Captures) {
  ChessPosition position = Placed("Ke1 Nb1 rc3");
  EXPECT_EQ(Make(position, "b1c3").Captured, PieceOf(kRook, Colour::Black));
  EXPECT_EQ(position.Board, Placed("Ke1 Nc3").Board);
}

// ---- The own king ----

TEST(Move, IsUndoneWhenTheOwnKingWouldBeAttacked) {
  for (const char* pieces : {"Ke1 Be2 re8", "Ke1 Be2 re8 nd3", "Ke1 Be2 re8 pa6"}) {
    ChessPosition position = Placed(pieces, "KQ");
    const ChessPosition before = position;
    EXPECT_FALSE(Try(position, "e2d3")) << pieces;
    EXPECT_EQ(position, before) << pieces;
  }
}

TEST(Move, BringsBackWhatItCapturedWhenUndone) {
  ChessPosition position = Placed("ke8 be7 Re1 Nd6");
  const ChessPosition before = position;
  EXPECT_FALSE(Try(position, "e7d6"));
  EXPECT_EQ(position, before);
}

TEST(Move, BringsBackThePawnCapturedEnPassantWhenUndone) {
  struct {
    const char* Pieces;
    const char* Move;
  } const cases[] = {{"Ka5 Pb5 pc5 rh5", "b5c6"}, {"ka4 pb4 Pc4 Rh4", "b4c3"}};
  for (const auto& tested : cases) {
    ChessPosition position = Placed(tested.Pieces);
    position.EnPassantSquares = {.White = Square("c6"), .Black = Square("c3")};
    const ChessPosition before = position;
    EXPECT_FALSE(Try(position, tested.Move)) << tested.Pieces;
    EXPECT_EQ(position, before) << tested.Pieces;
  }
}

TEST(Move, MustEndACheck) {
  ChessPosition position = Placed("Ke1 Ra2 Qh3 re8");
  const ChessPosition before = position;
  EXPECT_FALSE(Try(position, "a2a3"));
  EXPECT_EQ(position, before);
  EXPECT_TRUE(Try(position, "a2e2"));
}

TEST(Move, LetsTheKingStepOntoAnAttackedSquare) {
  ChessPosition position = Placed("Ke1 rd8");
  EXPECT_TRUE(Try(position, "e1d1"));
  EXPECT_EQ(position.KingSquares.White, Square("d1"));
}

TEST(Move, OfTheKingIsAskedForTheSquareThatItLeaves) {
  ChessPosition position = Placed("Ke2 re8");
  // The empty square e2 lies open to the rook still, so not even leaving the file helps.
  EXPECT_FALSE(Try(position, "e2d2"));
  EXPECT_EQ(position.KingSquares.White, Square("e2"));
  // Taking the attacker does.
  ChessPosition beside = Placed("Ke2 re3");
  EXPECT_TRUE(Try(beside, "e2e3"));
}

TEST(Move, LetsTheBlackKingStepBesideAWhitePawn) {
  ChessPosition position = Placed("ke6 Pd4");
  EXPECT_TRUE(Try(position, "e6e5"));
  EXPECT_TRUE(Try(position, "e5f5"));
}

TEST(Move, IsNotHeldBackWithoutAKing) {
  ChessPosition position = Placed("Qd1 qd8");
  EXPECT_TRUE(Try(position, "d1a1"));
}

// ---- Kings and rooks ----

struct Castle {
  const char* Name;
  const char* Before;
  const char* Move;
  const char* After;
  const char* Rights;
  const char* RookSource;
  const char* RookTarget;
};

void PrintTo(const Castle& castle, std::ostream* out) { *out << castle.Name; }

class Castling : public testing::TestWithParam<Castle> {};

TEST_P(Castling, MovesTheRookToo) {
  const Castle& castle = GetParam();
  ChessPosition position = Placed(castle.Before, "KQkq");
  const ChessMove move = Make(position, castle.Move);
  EXPECT_EQ(position.Board, Placed(castle.After).Board);
  EXPECT_EQ(position.Castling, Placed("", castle.Rights).Castling);
  EXPECT_EQ(position.KingSquares, FindKings(position.Board));
  EXPECT_EQ(move.CastlingRook, (RookMove{.Source = Square(castle.RookSource), .Target = Square(castle.RookTarget)}));
}

constexpr Castle kCastles[] = {
    {"WhiteShort", "Ke1 Ra1 Rh1 ke8", "e1g1", "Kg1 Ra1 Rf1 ke8", "kq", "h1", "f1"},
    {"WhiteLong", "Ke1 Ra1 Rh1 ke8", "e1c1", "Kc1 Rd1 Rh1 ke8", "kq", "a1", "d1"},
    {"BlackShort", "Ke1 ke8 ra8 rh8", "e8g8", "Ke1 kg8 ra8 rf8", "KQ", "h8", "f8"},
    {"BlackLong", "Ke1 ke8 ra8 rh8", "e8c8", "Ke1 kc8 rd8 rh8", "KQ", "a8", "d8"},
    {"AsAStepOfTheKing", "Kg2 Rh1", "g2g1", "Kg1 Rf1", "kq", "h1", "f1"},
    {"WithWhatStandsInTheCorner", "Ke1 bh1", "e1g1", "Kg1 Rf1", "kq", "h1", "f1"},
};
INSTANTIATE_TEST_SUITE_P(ChessMove, Castling, testing::ValuesIn(kCastles),
                         [](const auto& tested) { return std::string(tested.param.Name); });

struct Right {
  const char* Name;
  const char* Move;
  const char* Left;  // of "KQkq"
};

void PrintTo(const Right& right, std::ostream* out) { *out << right.Name; }

class CastlingRights : public testing::TestWithParam<Right> {};

TEST_P(CastlingRights, AreLost) {
  ChessPosition position = Placed("Ke1 Ra1 Rh1 Rc4 ke8 ra8 rh8 rc5 Bb2", "KQkq");
  Make(position, GetParam().Move);
  EXPECT_EQ(position.Castling, Placed("", GetParam().Left).Castling);
}

constexpr Right kRights[] = {
    {"ByTheWhiteKing", "e1e2", "kq"},
    {"ByTheBlackKing", "e8e7", "KQ"},
    {"ByTheRookOfA1", "a1b1", "Kkq"},
    {"ByTheRookOfH1", "h1g1", "Qkq"},
    {"ByTheRookOfA8", "a8b8", "KQk"},
    {"ByTheRookOfH8", "h8g8", "KQq"},
    {"NotByAnotherWhiteRook", "c4c1", "KQkq"},
    {"NotByAnotherBlackRook", "c5c8", "KQkq"},
    {"NotByCapturingARookInItsCorner", "b2h8", "KQkq"},
    {"ByARookThatCapturesARookForItselfAlone", "h1h8", "Qkq"},
};
INSTANTIATE_TEST_SUITE_P(ChessMove, CastlingRights, testing::ValuesIn(kRights),
                         [](const auto& tested) { return std::string(tested.param.Name); });

TEST(Move, OfARookInTheOtherSidesCornerLosesNothing) {
  ChessPosition position = Placed("Ra8 rh1 Ke3 ke6", "KQkq");
  Make(position, "a8a7");
  Make(position, "h1h2");
  EXPECT_EQ(position.Castling, Placed("", "KQkq").Castling);
}

TEST(Move, ThatCapturesARookLeavesItsCastlingToTheOtherConditions) {
  ChessPosition position = Placed("Ke1 Rh1 Pg2 bb7 ke8", "K");
  Play(position, "g2g3");
  Play(position, "b7h1");
  EXPECT_TRUE(position.Castling.White.Short);
  Play(position, "g3g4");
  Play(position, "h1a8");
  EXPECT_EQ(GenerateTargets(position, Pick(position, "e1")).Castles.Short, Square("g1"));
}

TEST(Move, OfAKingWithoutCastlingMovesNoRook) {
  ChessPosition position = Placed("Kg2 Rh1");
  EXPECT_FALSE(Make(position, "g2g1").CastlingRook);
  EXPECT_EQ(position.Board, Placed("Kg1 Rh1").Board);
}

// ---- En passant ----

TEST(DoubleStep, LetsAPawnBesideItCaptureEnPassant) {
  struct {
    const char* Pieces;
    const char* Move;
    const char* White;
    const char* Black;
  } const cases[] = {
      {"Pe2 pd4", "e2e4", "", "e3"}, {"Pe2 pf4", "e2e4", "", "e3"}, {"Pa2 pb4", "a2a4", "", "a3"},
      {"Ph2 pg4", "h2h4", "", "h3"}, {"pe7 Pd5", "e7e5", "e6", ""}, {"pe7 Pf5", "e7e5", "e6", ""},
      {"Pe2", "e2e4", "", ""},       {"Pe2 pc4", "e2e4", "", ""},   {"Pe2 Pd4 rf4", "e2e4", "", ""},
      {"pe7 pd5", "e7e5", "", ""},   {"Pe3 pd4", "e3e4", "", ""},   {"Pe2 pd3", "e2e3", "", ""},
  };
  const auto square = [](std::string_view name) { return name.empty() ? std::nullopt : std::optional(Square(name)); };
  for (const auto& tested : cases) {
    SCOPED_TRACE(tested.Pieces);
    ChessPosition position = Placed(tested.Pieces);
    const ChessMove move = Make(position, tested.Move);
    EXPECT_EQ(position.EnPassantSquares.White, square(tested.White));
    EXPECT_EQ(position.EnPassantSquares.Black, square(tested.Black));
    EXPECT_EQ(move.EnPassantOffered, *tested.White != '\0' || *tested.Black != '\0');
  }
}

TEST(EnPassant, CapturesThePawnBehindTheSquare) {
  ChessPosition position = Placed("Pe2 pd4 Ke1 ke8");
  Play(position, "e2e4");
  const ChessMove capture = Play(position, "d4e3");
  EXPECT_TRUE(capture.EnPassantCapture);
  EXPECT_EQ(capture.Captured, kNoPiece);
  EXPECT_EQ(position.Board, Placed("pe3 Ke1 ke8").Board);
}

TEST(EnPassant, CapturesDownwardsToo) {
  ChessPosition position = Placed("Pe5 pd7 Ke1 ke8");
  position.SideToMove = Colour::Black;
  Play(position, "d7d5");
  const ChessMove capture = Play(position, "e5d6");
  EXPECT_TRUE(capture.EnPassantCapture);
  EXPECT_EQ(position.Board, Placed("Pd6 Ke1 ke8").Board);
}

TEST(EnPassant, IsOfPawnsAlone) {
  ChessPosition position = Placed("Pe2 pd4 bg5 Ke1");
  Make(position, "e2e4");
  EXPECT_FALSE(Make(position, "g5e3").EnPassantCapture);
  EXPECT_EQ(position.Board, Placed("Pe4 pd4 be3 Ke1").Board);
}

TEST(EnPassant, EndsWithTheNextMoveOfTheSideThatAllowedIt) {
  ChessPosition position = Placed("Pe2 pd4 Ke1 ke8");
  Play(position, "e2e4");
  Play(position, "e8e7");
  EXPECT_EQ(position.EnPassantSquares.Black, Square("e3"));
  Play(position, "e1e2");
  EXPECT_EQ(position.EnPassantSquares.Black, std::nullopt);
}

// ---- Promotion ----

TEST(Promotion, WaitsForAChoice) {
  for (const auto& [pieces, move, pawn] :
       {std::tuple("Pe7", "e7e8", kPawn), std::tuple("pe2", "e2e1", PieceOf(kPawn, Colour::Black))}) {
    ChessPosition position = Placed(pieces);
    const std::optional<ChessMove> made = Try(position, move);
    ASSERT_TRUE(made);
    EXPECT_TRUE(made->PromotionPending);
    EXPECT_EQ(made->PromotionChoice, kNoPiece);
    EXPECT_EQ(position.Board.At(made->Target), pawn);
  }
}

TEST(Promotion, TurnsThePawnIntoWhatIsChosen) {
  for (const int choice : kPromotionChoices) {
    for (const Colour colour : kBothColours) {
      ChessPosition position = Placed("Pe7 pe2");
      std::optional<ChessMove> move = Try(position, colour == Colour::White ? "e7e8" : "e2e1");
      ASSERT_TRUE(move);
      CompleteMove(position, *move, choice);
      EXPECT_EQ(position.Board.At(move->Target), choice + (colour == Colour::White ? 0 : 10));
      EXPECT_EQ(move->PromotionChoice, choice);
      EXPECT_FALSE(move->PromotionPending);
    }
  }
}

TEST(Promotion, IsAskedOfAPawnOnTheLastRowAlone) {
  ChessPosition position = Placed("Pe6 Rd7 pe3 qd2");
  for (const char* move : {"e6e7", "d7d8", "e3e2", "d2d1"}) {
    std::optional<ChessMove> made = Try(position, move);
    ASSERT_TRUE(made) << move;
    EXPECT_FALSE(made->PromotionPending) << move;
    CompleteMove(position, *made, kQueen);
    EXPECT_EQ(made->PromotionChoice, kNoPiece) << move;
    EXPECT_EQ(position.Board.At(made->Target), made->Moved.Piece) << move;
  }
}

// ---- Counters ----

TEST(HalfMoveClock, CountsMovesWithoutPawnAndCapture) {
  ChessPosition position = Placed("Ke2 ke8 Pa2 pa7 Rh1 rh8 Nb1");
  position.HalfMoveClock = 7;
  Play(position, "b1c3");
  EXPECT_EQ(position.HalfMoveClock, 8);
  Play(position, "h8h1");
  EXPECT_EQ(position.HalfMoveClock, 0);
  Play(position, "e2e3");
  EXPECT_EQ(position.HalfMoveClock, 1);
  Play(position, "a7a6");
  EXPECT_EQ(position.HalfMoveClock, 0);
}

TEST(HalfMoveClock, BeginsAgainWithACaptureEnPassant) {
  ChessPosition position = Placed("Pe5 pd5");
  position.EnPassantSquares.White = Square("d6");
  position.HalfMoveClock = 3;
  Play(position, "e5d6");
  EXPECT_EQ(position.HalfMoveClock, 0);
}

TEST(MoveNumber, GrowsAfterBlack) {
  ChessPosition position = StartPosition();
  Play(position, "e2e4");
  EXPECT_EQ(position.MoveNumber, 1);
  EXPECT_EQ(position.SideToMove, Colour::Black);
  Play(position, "e7e5");
  EXPECT_EQ(position.MoveNumber, 2);
  EXPECT_EQ(position.SideToMove, Colour::White);
}

TEST(Counters, StayAtTheirHighestValue) {
  constexpr std::int16_t kHighest = std::numeric_limits<std::int16_t>::max();
  ChessPosition position = Placed("ka8");
  position.SideToMove = Colour::Black;
  position.HalfMoveClock = kHighest;
  position.MoveNumber = kHighest;
  Play(position, "a8b8");
  EXPECT_EQ(position.HalfMoveClock, kHighest);
  EXPECT_EQ(position.MoveNumber, kHighest);
}

TEST(FenEnPassant, TellsADoubleStep) {
  struct {
    const char* Pieces = nullptr;
    const char* Move = nullptr;
    std::optional<Coordinate> Told;
  } const cases[] = {
      {"Pe2 pd4", "e2e4", Coordinate{5, 6}},
      {"Pe2", "e2e4", Coordinate{5, 6}},
      {"Pa2", "a2a4", Coordinate{1, 2}},
      {"Ph2", "h2h4", Coordinate{8, 9}},
      {"pe7", "e7e5", Coordinate{5, 6}},
      {"ph7", "h7h5", Coordinate{8, 6}},
      {"Pe2", "e2e3", {}},
      {"pe7", "e7e6", {}},
      {"Re2", "e2e4", {}},
      {"Pe3", "e3e4", {}},
      {"re7", "e7e5", {}},
  };
  for (const auto& tested : cases) {
    ChessPosition position = Placed(tested.Pieces);
    position.FenEnPassant = Coordinate{3, 3};
    Make(position, tested.Move);
    EXPECT_EQ(position.FenEnPassant, tested.Told) << tested.Pieces << ' ' << tested.Move;
  }
}

}  // namespace
}  // namespace brontavia::test
