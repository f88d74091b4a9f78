// The running clocks of a session: what starts, stops and sets them, and TBReloj, which shows them.
#pragma once

#include "games/chess/chess_clock.h"
#include "games/chess/chess_game.h"
#include "games/chess/chess_host.h"
#include "seams/screen.h"
#include "seams/second_timer.h"

namespace brontavia {

class ChessClocks {
 public:
  // Whose time runs is `game`'s side to move.
  ChessClocks(ChessHost& host, Screen& screen, const ChessGame& game, SecondTimer::Now now);

  // Stopped, and both at zero.
  void Reset();
  // The seconds that have passed are given to the side to move. To be called before another side is to move.
  void CatchUp() { timer1_.CatchUp(); }
  // A move of the side to move stands; one of White starts the clocks.
  void MoveStands();

  // ---- Commands ----

  void Toggle();
  void AskTimes();

  [[nodiscard]] bool Running() const { return timer1_.IsRunning(); }
  [[nodiscard]] const ChessClock& Times() const { return times_; }
  [[nodiscard]] SecondTimer& Timer1() { return timer1_; }

 private:
  void Show();
  // Nothing for an answer that is no time.
  std::optional<ClockTime> AskTime(Colour colour);

  ChessHost& host_;
  Screen& screen_;
  const ChessGame& game_;
  ChessClock times_;
  SecondTimer timer1_;
};

}  // namespace brontavia
