#include "benchmarks/rule_work.h"

#include <array>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <utility>

#include "games/chess/chess_game.h"
#include "games/chess/position_line.h"
#include "games/naval/naval_board.h"
#include "games/strategy/combat.h"
#include "games/strategy/movement.h"
#include "games/three_in_row/three_in_row_board.h"

namespace brontavia {
namespace {

constexpr Player kPlayer = Player::Server;

void Demand(bool true_one) {
  if (!true_one) std::abort();
}

// ---- Three in a row: a piece is lifted and put down, and a line is looked for ----

Work ThreeInRowMove() {
  auto board = std::make_shared<ThreeInRowBoard>();
  for (const int cell : {0, 1, 5}) {
    board->Click(kPlayer, cell);
    board->EndMove(kPlayer);
    board->BeginMove(kPlayer);
  }
  for (const int cell : {2, 3, 4}) board->Apply(OpponentOf(kPlayer), {.Lifted = kNoCell, .Target = cell});
  board->BeginMove(kPlayer);
  return {"three in a row", [board, from = 5, to = 8]() mutable {
            board->Click(kPlayer, from);
            board->Click(kPlayer, to);
            Demand(!board->HasLine());
            board->EndMove(kPlayer);
            board->BeginMove(kPlayer);
            std::swap(from, to);
          }};
}

// ---- Naval battle: a shot at each board, at water and at a ship ----

constexpr Coordinate kShip{.Column = 3, .Row = 1};
constexpr Coordinate kWater{.Column = 9, .Row = 9};

Work NavalShots() {
  auto board = std::make_shared<NavalBoard>();
  board->ClickToPlace({.Column = 1, .Row = 1});
  board->ClickToPlace({.Column = 5, .Row = 1});
  return {"naval battle", [board] {
            Demand(board->Fire(kWater).Step == ShotStep::Water);
            Demand(board->TakeHit(kShip).Step != ShotStep::Water);
          }};
}

// ---- Strategy: a scout runs over the board, an attack is resolved, and who can move is looked for ----

Work StrategyMove() {
  auto board = std::make_shared<StrategyBoard>(kEstratega);
  constexpr Coordinate kFrom{.Column = 1, .Row = 1};
  constexpr Coordinate kTo{.Column = 1, .Row = 10};
  const CellCode scout = CodeOf({.Side = kPlayer, .Rank = Rank::Scout});
  return {"strategy", [=] {
            board->Set(kFrom, scout);
            board->Set(kTo, CodeOf({.Side = OpponentOf(kPlayer), .Rank = Rank::Spy}));
            Demand(CheckMoveRange(*board, Rank::Scout, kFrom, kTo) == MoveRange::Valid);
            ApplyResult(*board, scout, kFrom, kTo, ResultOf(ResolveCombat(Rank::Scout, Rank::Spy)));
            Demand(FindMovablePiece(*board, kPlayer).has_value());
            board->Set(kTo, kEmptyLand);
          }};
}

// ---- Chess: both clicks of a move with all that they set off ----

Work ChessMoveOf(std::string name, std::u16string_view line, Coordinate source, Coordinate target) {
  ChessGame game;
  const auto position = ReadPosition(line, game.Position());
  Demand(position.has_value());
  game.Load(*position);
  return {std::move(name), [before = game, source, target] {
            ChessGame played = before;
            Demand(played.Click(source, false).What == ChessClick::PickedUp);
            auto outcome = played.Click(target, false);
            Demand(outcome.Move.has_value());
            played.CompleteMove(*outcome.Move);
            played.PassTurn();
          }};
}

}  // namespace

std::vector<Work> RuleWork() {
  constexpr std::u16string_view kOpening = u"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR/W KQkq - 0 1";
  constexpr std::u16string_view kMiddle = u"r3k2r/pppq1ppp/2npbn2/2b5/2B5/2NPBN2/PPPQ1PPP/R3K2R/W KQkq - 6 9";
  constexpr std::u16string_view kEnd = u"8/5k2/3p4/3P1r2/1K6/8/6R1/8/W - - 3 51";
  return {ThreeInRowMove(),
          NavalShots(),
          StrategyMove(),
          ChessMoveOf("chess, opening", kOpening, {.Column = 7, .Row = 1}, {.Column = 6, .Row = 3}),
          ChessMoveOf("chess, middle game", kMiddle, {.Column = 4, .Row = 2}, {.Column = 5, .Row = 2}),
          ChessMoveOf("chess, castling", kMiddle, {.Column = 5, .Row = 1}, {.Column = 7, .Row = 1}),
          ChessMoveOf("chess, end game", kEnd, {.Column = 7, .Row = 2}, {.Column = 7, .Row = 7})};
}

}  // namespace brontavia
