// What the window shows of a game: the board FG1, the position box TBEntorno and the move list TBJugadas.
#pragma once

#include <optional>

#include "games/chess/chess_game.h"
#include "seams/board_model.h"
#include "seams/screen.h"

namespace brontavia {

class ChessDisplay {
 public:
  ChessDisplay(const ChessGame& game, Screen& screen);

  // ---- After a change of the game ----

  void DrawBoard();
  void ShowPositionBox();
  // Both.
  void ShowPosition();
  // Of a new game, or one that has been loaded: nothing has been moved yet.
  void ShowNewGame();
  // Told in the messages too. Of a move that is complete, before the turn passes.
  void ShowMove(const ChessMove& move);

  // ---- How it is shown ----

  void ToggleLearningMode();
  [[nodiscard]] bool LearningMode() const { return learning_mode_; }
  void TurnBoard();
  [[nodiscard]] bool BoardFlipped() const { return board_flipped_; }

  [[nodiscard]] BoardModel& FG1() { return fg1_; }
  [[nodiscard]] const BoardModel& FG1() const { return fg1_; }
  // Where a square shows on FG1, and which square a cell shows.
  [[nodiscard]] CellIndex IndexOf(Coordinate square) const;
  [[nodiscard]] Coordinate SquareOf(CellIndex cell) const;

 private:
  void ShowHeaders();
  [[nodiscard]] Marks MarksOf(Coordinate square) const;
  [[nodiscard]] QString DescribeCell(CellIndex cell) const;

  const ChessGame& game_;
  Screen& screen_;
  BoardModel fg1_;
  std::optional<ChessMove> last_move_;
  bool learning_mode_ = false;
  bool board_flipped_ = false;
};

}  // namespace brontavia
