// Free mode, and what it allows: pieces, counters and turn of the board are changed by hand.
#pragma once

#include <functional>
#include <optional>
#include <utility>

#include "games/chess/chess_host.h"
#include "games/chess/chess_table.h"
#include "seams/screen.h"

namespace brontavia {

class ChessEditing {
 public:
  // `mode_changed` is called after each change of FreeMode().
  ChessEditing(ChessHost& host, Screen& screen, const ChessTable& table, std::function<void()> mode_changed)
      : host_(host), screen_(screen), table_(table), mode_changed_(std::move(mode_changed)) {}

  [[nodiscard]] bool FreeMode() const { return free_mode_; }
  // The square that the keys below are about.
  void NoteClicked(Coordinate square) { clicked_square_ = square; }

  // ---- Commands ----

  void ToggleFreeMode();
  void EmptyBoard();
  void SetData();

  // ---- Keys ----

  // Beeps outside free mode.
  void DeletePiece();
  // Does nothing outside free mode.
  void InsertPiece();
  // Tells whether Black attacks the clicked square.
  void TellAttack();

 private:
  void PutOnClickedSquare(int piece);

  ChessHost& host_;
  Screen& screen_;
  ChessTable table_;
  std::function<void()> mode_changed_;
  std::optional<Coordinate> clicked_square_;
  bool free_mode_ = false;
};

}  // namespace brontavia
