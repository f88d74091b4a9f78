// How long the rules of chess take for what a click sets off, without anything of Qt. Aim: under 20 microseconds.
#include <benchmark/benchmark.h>

#include <cstdlib>

#include "games/chess/chess_game.h"
#include "games/chess/move_record.h"
#include "games/chess/position_box.h"
#include "games/chess/position_line.h"

namespace brontavia {
namespace {

// A middle game with all pieces but two pawns of each side on the board and every castling still allowed.
ChessGame MiddleGame() {
  ChessGame game;
  const auto position =
      ReadPosition(u"r3k2r/pppq1ppp/2npbn2/2b5/2B5/2NPBN2/PPPQ1PPP/R3K2R/W KQkq - 6 9", game.Position());
  if (!position) std::abort();
  game.Load(*position);
  return game;
}

constexpr Coordinate kKingSquare{.Column = 5, .Row = 1};
constexpr Coordinate kCastled{.Column = 7, .Row = 1};
constexpr Coordinate kQueenSquare{.Column = 4, .Row = 2};
constexpr Coordinate kQueenTarget{.Column = 5, .Row = 2};

void PickUp(benchmark::State& state, Coordinate square) {
  ChessGame game = MiddleGame();
  for (auto _ : state) {
    benchmark::DoNotOptimize(game.Click(square, false));
    game.DropSelection();
  }
}
BENCHMARK_CAPTURE(PickUp, Queen, kQueenSquare);
BENCHMARK_CAPTURE(PickUp, KingThatMayCastleBothWays, kKingSquare);

// Both clicks with all that they set off: generation, castling tests, self-check, counters, turn.
void WholeMove(benchmark::State& state, Coordinate source, Coordinate target) {
  const ChessGame before = MiddleGame();
  for (auto _ : state) {
    ChessGame game = before;
    game.Click(source, false);
    ChessMove move = game.Click(target, false).Move.value();
    game.CompleteMove(move);
    game.PassTurn();
    benchmark::DoNotOptimize(game);
  }
}
BENCHMARK_CAPTURE(WholeMove, Queen, kQueenSquare, kQueenTarget);
BENCHMARK_CAPTURE(WholeMove, Castling, kKingSquare, kCastled);

// What is written of a move, its look for a check included.
void MoveTexts(benchmark::State& state) {
  ChessGame game = MiddleGame();
  game.Click(kQueenSquare, false);
  ChessMove move = game.Click(kQueenTarget, false).Move.value();
  game.CompleteMove(move);
  for (auto _ : state) {
    benchmark::DoNotOptimize(RecordMove(game.Position(), move));
    benchmark::DoNotOptimize(PositionBoxText(game.Position()));
  }
}
BENCHMARK(MoveTexts);

void PositionWrittenAndRead(benchmark::State& state) {
  const ChessPosition position = MiddleGame().Position();
  for (auto _ : state) benchmark::DoNotOptimize(ReadPosition(PositionLine(position), position));
}
BENCHMARK(PositionWrittenAndRead);

}  // namespace
}  // namespace brontavia
