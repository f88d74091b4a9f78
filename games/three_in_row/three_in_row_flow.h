// A session of three in a row: turns the outcomes of ThreeInRowBoard into texts, messages and what FG1 shows. The
// Drawing of a cell is the symbol of the piece that the own player has lifted from there.
#pragma once

#include "games/three_in_row/three_in_row_board.h"
#include "net/game_flow.h"
#include "seams/board_model.h"

namespace brontavia {

class ThreeInRowFlow : public GameFlow {
  Q_OBJECT

 public:
  ThreeInRowFlow(const Seams& seams, const RandomSeed& seed);

  // Entry: the user clicked `cell` of the board, or pressed Enter or the space bar on it.
  void BoardClicked(CellIndex cell);

  [[nodiscard]] BoardModel& FG1() { return fg1_; }
  [[nodiscard]] const BoardModel& FG1() const { return fg1_; }
  [[nodiscard]] const ThreeInRowBoard& Board() const { return board_; }

 protected:
  void LoadGame() override { ShowBoard(); }
  void ResetForSession() override;
  void ResetForNewGame() override;
  void DescribeSide(Player player, ScoreboardSide& side) const override;
  [[nodiscard]] KeyHints Keys() const override;

 private:
  void ResetBoard();
  // Texts, colours and marks of all cells.
  void ShowBoard();
  void OwnClick(int cell);
  // `before`: the board without the click that has completed the move.
  void FinishOwnMove(const ThreeInRowBoard& before);
  void MoveReceived(const QString& payload);
  void Lost();
  void SetGameOver(bool over);
  [[nodiscard]] CellContent ContentOf(int cell) const;

  ThreeInRowBoard board_;
  std::optional<TerMove> opponents_move_;  // until the own player has answered it
  BoardModel fg1_;
};

}  // namespace brontavia
