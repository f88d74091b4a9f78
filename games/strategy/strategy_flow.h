// A session of a strategy game: turns the outcomes of the rules into texts, messages and what FG1 shows.
#pragma once

#include "games/placing_flow.h"
#include "games/strategy/army.h"
#include "games/strategy/combat.h"
#include "games/strategy/strategy_game.h"
#include "seams/board_model.h"
#include "seams/scoreboard.h"

namespace brontavia {

class StrategyFlow : public PlacingFlow {
  Q_OBJECT

 public:
  StrategyFlow(const StrategyGame& game, const Seams& seams, const RandomSeed& seed);

  // ---- Entries ----

  // The user clicked `cell` of FG1, or pressed Enter or the space bar on it.
  void BoardClicked(CellIndex cell);
  // The pointer has moved over `cell` of FG1.
  void PointerMoved(CellIndex cell);
  // The user pressed a key (Qt::Key): F2, F3 and Esc mean something wherever the focus is.
  void KeyPressed(int key);
  // Placing begins anew.
  void BeginPlacement();

  [[nodiscard]] BoardModel& FG1() { return fg1_; }
  [[nodiscard]] const BoardModel& FG1() const { return fg1_; }
  [[nodiscard]] const brontavia::StrategyBoard& StrategyBoard() const { return board_; }
  [[nodiscard]] const brontavia::Army& Army() const { return army_; }
  // Nothing while no piece is selected.
  [[nodiscard]] std::optional<Coordinate> SelectedCell() const {
    return selection_ ? std::optional(selection_->Cell) : std::nullopt;
  }
  // What fought in the last fight, as far as this player was told. Nothing once another move has been made.
  using Fighters = PerPlayer<std::optional<FoughtPiece>>;
  [[nodiscard]] Fighters Fought() const { return last_move_ ? last_move_->Fought : Fighters(); }
  // Where a cell of the board shows on FG1.
  [[nodiscard]] CellIndex IndexOf(Coordinate cell) const;

 protected:
  void LoadGame() override;
  void ResetForSession() override { ResetArmy(); }
  void ResetForNewGame() override;
  void FirstTurnSettled() override;
  void DescribeSide(Player player, ScoreboardSide& side) const override;
  [[nodiscard]] KeyHints Keys() const override;

 private:
  // The opponent's pieces show as "*" all through the game.
  static constexpr bool HideEnemyRanks = true;

  void ResetArmy();
  void SetGameOver(bool over);

  // ---- Placing ----
  void ClickToPlace(Coordinate cell);
  void ChooseRankFor(Coordinate cell);
  void TakeBack(Coordinate cell);
  void DeployAtRandom();
  [[nodiscard]] Button AskWhetherPlaced();

  // ---- Exchange ----
  void FinishPlacing();
  void SendArmy();
  void ReceiveArmy(const QString& data);
  void OpponentReady();
  void BeginFight();

  // ---- Fight ----
  [[nodiscard]] bool OwnTurn() const { return session_.TurnSettled && session_.CurrentTurn == OwnPlayer(); }
  void PassTurnOn() { session_.CurrentTurn = OpponentOf(session_.CurrentTurn); }
  void ClickToFight(Coordinate cell);
  // The piece that is to move, as it was selected: an army that arrives may overwrite its cell.
  struct Selection {
    Coordinate Cell;
    brontavia::Piece Piece;
  };
  void Select(Coordinate cell);
  void ClearSelection();
  void ClickTarget(Selection selected, Coordinate cell);
  [[nodiscard]] bool InRange(Selection selected, Coordinate cell);
  void MoveTo(Selection selected, Coordinate cell);
  void Attack(Selection selected, Coordinate cell, Rank defender);
  // What the board marks and the strip tells until another move is made.
  struct LastMove {
    Coordinate From;
    Coordinate To;
    Fighters Fought;
  };
  // What `attacker`, of player `mover`, and `defender` were when they met with `result`. A plain move is no fight.
  [[nodiscard]] static Fighters FightOf(Player mover, CellCode attacker, CellCode defender, CombatResult result);
  void MarkLastMove(const std::optional<LastMove>& move);
  enum class Carried {
    Out,         // it has reached the opponent
    NotOut,      // it has not, and is undone
    OfAnOldGame  // a new game has begun meanwhile, which the move is not to touch
  };
  // Applies and sends the selected piece's move.
  [[nodiscard]] Carried CarryOut(Selection selected, Coordinate target, CombatResult result);
  // The opponent has been told.
  void TakeFlag(Selection selected, Coordinate cell);
  void ApplyOpponentMove(const QString& payload);
  void Pass();
  void OpponentPassed();
  void FlagLost();

  // ---- What the window shows ----
  void ShowHeaders();
  void DrawBoard();
  void DrawCell(Coordinate cell);
  // Leaves alone what stands there.
  void DrawMarks(Coordinate cell);
  [[nodiscard]] brontavia::Marks MarksOf(Coordinate cell) const;
  void ShowDescription(Coordinate cell) { SetStatus(DescribeCell(cell)); }
  [[nodiscard]] QString DescribeCell(Coordinate cell) const;
  void ListRanks();
  [[nodiscard]] Coordinate CellOf(CellIndex index) const;
  [[nodiscard]] QString PaddedName(Player player) const { return session_.PlayerNames.Padded(player); }

  const StrategyGame& game_;
  brontavia::StrategyBoard board_;
  brontavia::Army army_;
  BoardModel fg1_;
  std::optional<Selection> selection_;
  std::optional<LastMove> last_move_;
};

}  // namespace brontavia
