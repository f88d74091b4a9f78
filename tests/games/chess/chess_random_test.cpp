// The rules of chess against a second implementation, on random positions and in random games.
#include <gtest/gtest.h>

#include <iterator>
#include <map>
#include <random>
#include <string>

#include "games/chess/attack.h"
#include "games/chess/chess_game.h"
#include "tests/games/chess/chess_places.h"
#include "tests/games/chess/plain_chess.h"
#include "tests/support/random_games.h"

namespace brontavia::test {
namespace {

using Place = PlainChess::Place;

class Random {
 public:
  explicit Random(unsigned seed) : numbers_(seed) {}

  int Below(int bound) { return static_cast<int>(numbers_() % static_cast<unsigned>(bound)); }
  bool OneIn(int count) { return Below(count) == 0; }
  Colour AnyColour() { return OneIn(2) ? Colour::White : Colour::Black; }
  Coordinate Square() { return {.Column = 1 + Below(8), .Row = 1 + Below(8)}; }

 private:
  std::mt19937 numbers_;
};

// Kings and rooks at home and little between them, so that castling is often near.
void PutForCastling(Random& random, ChessBoard& board) {
  for (const Colour colour : kBothColours) {
    const int row = BackRow(colour);
    for (int column = 2; column <= 7; ++column) {
      if (!random.OneIn(8)) board.Put({column, row}, kNoPiece);
    }
    board.Put({5, row}, PieceOf(kKing, colour));
    board.Put({1, row}, PieceOf(kRook, colour));
    board.Put({8, row}, PieceOf(kRook, colour));
  }
}

// Any pieces anywhere, several kings or none, pawns on any row; a line of text may set en passant squares which no
// double step has left, so they too are anywhere in their rows, the ring included.
ChessPosition RandomPosition(Random& random) {
  ChessPosition position;
  for (int pieces = 1 + random.Below(24); pieces > 0; --pieces) {
    position.Board.Put(random.Square(), PieceOf(1 + random.Below(6), random.AnyColour()));
  }
  if (random.OneIn(3)) PutForCastling(random, position.Board);
  position.SideToMove = random.AnyColour();
  const int rights = random.Below(32);  // half of the time all
  for (const Colour colour : kBothColours) {
    const int own = rights >> (2 * NumberOf(colour));
    position.Castling[colour] = {.Short = rights >= 16 || (own & 1) != 0, .Long = rights >= 16 || (own & 2) != 0};
  }
  if (random.OneIn(2)) position.EnPassantSquares.White = Coordinate{random.Below(10), 6};
  if (random.OneIn(2)) position.EnPassantSquares.Black = Coordinate{random.Below(10), 3};
  position.KingSquares = FindKings(position.Board);
  position.HalfMoveClock = static_cast<std::int16_t>(random.Below(100));
  position.MoveNumber = static_cast<std::int16_t>(1 + random.Below(100));
  return position;
}

std::optional<Coordinate> SquareAt(Place place) {
  if (place == Place{}) return std::nullopt;
  return Coordinate{.Column = place.first, .Row = place.second};
}

PlainChess::Places PlacesOf(const TargetList& targets) {
  PlainChess::Places places;
  for (const Coordinate square : targets) places.set(PlainChess::IndexOf(square.Column, square.Row));
  return places;
}

// Asked for one square after the other, the ring included, the steps are those that are listed.
void CompareSteps(const ChessPosition& position, Coordinate source) {
  const ChessSelection selection{.Source = source, .Piece = position.Board.At(source)};
  const TargetList steps = PieceSteps(position, selection);
  for (int column = 0; column <= kBoardSide + 1; ++column) {
    for (int row = 0; row <= kBoardSide + 1; ++row) {
      const Coordinate square{.Column = column, .Row = row};
      ASSERT_EQ(CanStepTo(position, selection, square), steps.Holds(square))
          << testing::PrintToString(source) << " to " << testing::PrintToString(square) << " of "
          << testing::PrintToString(position);
    }
  }
}

void CompareTargets(const ChessPosition& position, PlainChess& plain, Coordinate square) {
  const GeneratedTargets targets = GenerateTargets(position, {.Source = square, .Piece = position.Board.At(square)});
  ASSERT_EQ(PlacesOf(targets.Squares), plain.Targets(square.Column, square.Row))
      << testing::PrintToString(square) << " of " << testing::PrintToString(position);
  if (KindOf(position.Board.At(square)) != kKing) return;
  ASSERT_EQ(targets.Castles.Short, SquareAt(plain.CastleShort)) << testing::PrintToString(position);
  ASSERT_EQ(targets.Castles.Long, SquareAt(plain.CastleLong)) << testing::PrintToString(position);
}

// How the second implementation tells a colour, or none.
int PlainColour(std::optional<Colour> colour) { return colour ? NumberOf(*colour) : -1; }

void CompareAttack(const ChessPosition& position, const PlainChess& plain, Coordinate square,
                   std::optional<Colour> colour) {
  ASSERT_EQ(IsSquareAttacked(position, square, colour), plain.Attacked(square.Column, square.Row, PlainColour(colour)))
      << testing::PrintToString(square) << ", colour " << PlainColour(colour) << " of "
      << testing::PrintToString(position);
}

void CompareLiftedAttack(const ChessPosition& position, const PlainChess& plain, Random& random) {
  const Coordinate square = random.Square();
  const Coordinate lifted = random.Square();
  ASSERT_EQ(IsSquareAttacked(position, square, std::nullopt, lifted),
            plain.Attacked(square.Column, square.Row, PlainColour(std::nullopt), {lifted.Column, lifted.Row}))
      << testing::PrintToString(square) << " without " << testing::PrintToString(lifted) << " of "
      << testing::PrintToString(position);
}

void ComparePosition(const ChessPosition& position, Random& random) {
  PlainChess plain(position);
  Coordinate square = random.Square();
  for (int tries = 0; tries < 8 && position.Board.At(square) == kNoPiece; ++tries) square = random.Square();
  if (position.Board.At(square) != kNoPiece) {
    ASSERT_NO_FATAL_FAILURE(CompareTargets(position, plain, square));
    if (random.OneIn(16)) {
      ASSERT_NO_FATAL_FAILURE(CompareSteps(position, square));
    }
  }
  for (const Colour colour : kBothColours) {
    const std::optional<Coordinate> king = position.KingSquares[colour];
    if (!king) continue;
    ASSERT_NO_FATAL_FAILURE(CompareTargets(position, plain, *king));
    ASSERT_NO_FATAL_FAILURE(CompareAttack(position, plain, *king, colour));
  }
  ASSERT_NO_FATAL_FAILURE(CompareAttack(position, plain, random.Square(),
                                        random.OneIn(3) ? std::nullopt : std::optional(random.AnyColour())));
  if (random.OneIn(4)) CompareLiftedAttack(position, plain, random);
}

class RandomChess : public testing::TestWithParam<unsigned> {};

TEST_P(RandomChess, TargetsAndAttacksAgreeOnEveryPosition) {
  constexpr int kPositions = 250'000 / kShareOfRandom;  // of each seed
  Random random(GetParam());
  for (int n = 0; n < kPositions; ++n) {
    ASSERT_NO_FATAL_FAILURE(ComparePosition(RandomPosition(random), random)) << "position " << n;
  }
}

// One click after the other, in free mode or not, on whatever square; a move of one must be a move of the other.
class RandomGame {
 public:
  RandomGame(Random& random, std::map<std::string, int>& seen)
      : random_(random), seen_(seen), plain_(game_.Position()) {}

  // From a random position, so that the rare cases are not rare.
  void BeginAnywhere() {
    for (Coordinate square{1, 1}; square.Column <= 8; square = Next(square)) game_.Put(square, kNoPiece);
    const ChessPosition position = RandomPosition(random_);
    for (Coordinate square{1, 1}; square.Column <= 8; square = Next(square)) {
      game_.Put(square, position.Board.At(square));
    }
    plain_ = PlainChess(game_.Position());
  }

  void Step() {
    const bool free_mode = random_.OneIn(8);
    const Coordinate source = RandomSource();
    game_.DropSelection();
    if (game_.Click(source, free_mode).What != ChessClick::PickedUp) return;
    const PlainChess::Places targets = plain_.Targets(source.Column, source.Row);
    ASSERT_EQ(PlacesOf(game_.Targets()), targets);
    const Coordinate target = RandomTarget();
    const ChessClickOutcome outcome = game_.Click(target, free_mode);
    if (outcome.What == ChessClick::Dropped || outcome.What == ChessClick::NotATarget) {
      ASSERT_FALSE(targets.test(PlainChess::IndexOf(target.Column, target.Row)));
      return;
    }
    const int choice = kPromotionChoices.at(static_cast<std::size_t>(random_.Below(4)));
    const bool stands = plain_.Move({source.Column, source.Row}, {target.Column, target.Row}, choice);
    ASSERT_EQ(outcome.What, stands ? ChessClick::Moved : ChessClick::KingAttacked);
    ++seen_[stands ? "moves" : "refused moves"];
    if (stands) Finish(outcome.Move.value(), choice);
    ASSERT_EQ(PlainChess(game_.Position()).Dump(), plain_.Dump());
  }

 private:
  static Coordinate Next(Coordinate square) {
    return square.Row < 8 ? Coordinate{square.Column, square.Row + 1} : Coordinate{square.Column + 1, 1};
  }

  // Often where a pawn may capture en passant, should one stand there.
  Coordinate RandomSource() {
    const Colour side = game_.Position().SideToMove;
    const std::optional<Coordinate> onto = game_.Position().EnPassantSquares[side];
    if (!onto || random_.OneIn(2)) return random_.Square();
    return {onto->Column == 1 || (onto->Column < 8 && random_.OneIn(2)) ? onto->Column + 1 : onto->Column - 1,
            onto->Row - ForwardStep(side)};
  }

  // Mostly one that can be reached; often the last one, with which a king castles and a pawn captures.
  Coordinate RandomTarget() {
    const int targets = static_cast<int>(game_.Targets().size());
    if (targets == 0 || random_.OneIn(8)) return random_.Square();
    return *std::next(game_.Targets().begin(), random_.OneIn(3) ? targets - 1 : random_.Below(targets));
  }

  void Finish(ChessMove move, int choice) {
    if (move.CastlingRook) ++seen_["castlings"];
    if (move.EnPassantCapture) ++seen_["en passant captures"];
    if (move.EnPassantOffered) ++seen_["en passant offers"];
    if (move.PromotionPending) ++seen_["promotions"];
    game_.CompleteMove(move, choice);
    game_.PassTurn();
  }

  Random& random_;
  std::map<std::string, int>& seen_;
  ChessGame game_;
  PlainChess plain_;
};

TEST_P(RandomChess, GamesKeepTheSamePosition) {
  Random random(GetParam());
  std::map<std::string, int> seen;
  for (int n = 0; n < 1'000; ++n) {
    RandomGame game(random, seen);
    if (random.OneIn(2)) game.BeginAnywhere();
    for (int step = 0; step < 300; ++step) ASSERT_NO_FATAL_FAILURE(game.Step()) << "game " << n << ", step " << step;
  }
  for (const char* event :
       {"moves", "refused moves", "castlings", "en passant captures", "en passant offers", "promotions"}) {
    EXPECT_GT(seen[event], 20) << event;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomChess, testing::Values(1U, 2U, 3U, 4U));

}  // namespace
}  // namespace brontavia::test
