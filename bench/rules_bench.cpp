// How long the rules of three in a row take, without anything of Qt.
#include <benchmark/benchmark.h>

#include "games/three_in_row/three_in_row_board.h"

namespace brontavia {
namespace {

constexpr Player kPlayer = Player::Server;

// Three pieces of each player and no line, with the player about to lift a piece.
ThreeInRowBoard MovingBoard() {
  ThreeInRowBoard board;
  for (const int cell : {0, 1, 5}) {
    board.Click(kPlayer, cell);
    board.EndMove(kPlayer);
    board.BeginMove(kPlayer);
  }
  for (const int cell : {2, 3, 4}) board.Apply(OpponentOf(kPlayer), {.Lifted = kNoCell, .Target = cell});
  board.BeginMove(kPlayer);
  return board;
}

// A whole move, lifting and putting down, and the look for a line after it.
void MoveAndWinTest(benchmark::State& state) {
  ThreeInRowBoard board = MovingBoard();
  int from = 5;
  int to = 8;
  for (auto _ : state) {
    benchmark::DoNotOptimize(board.Click(kPlayer, from));
    benchmark::DoNotOptimize(board.Click(kPlayer, to));
    benchmark::DoNotOptimize(board.HasLine());
    board.EndMove(kPlayer);
    board.BeginMove(kPlayer);
    std::swap(from, to);
  }
}
BENCHMARK(MoveAndWinTest);

void RefusedClick(benchmark::State& state) {
  ThreeInRowBoard board = MovingBoard();
  for (auto _ : state) benchmark::DoNotOptimize(board.Click(kPlayer, 7));
}
BENCHMARK(RefusedClick);

void MoveTextWrittenAndRead(benchmark::State& state) {
  const TerMove move{.Lifted = 5, .Target = 8};
  for (auto _ : state) benchmark::DoNotOptimize(ReadTerMove(TerMoveText(move)));
}
BENCHMARK(MoveTextWrittenAndRead);

}  // namespace
}  // namespace brontavia
