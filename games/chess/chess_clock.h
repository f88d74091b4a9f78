// The clocks of both sides: they count up what each has spent, without a limit. What makes them tick is elsewhere.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "games/chess/chess_piece.h"

namespace brontavia {

// A time as it is typed. Both may be negative.
struct ClockTime {
  std::int32_t Minutes = 0;
  std::int32_t Seconds = 0;  // below 60
};

// Reads "minutes:seconds", both by the leading-number rule. Nothing without a ":" or with 60 seconds or more.
std::optional<ClockTime> ReadClockTime(std::u16string_view answer);

class ChessClock {
 public:
  // `seconds` have passed in the turn of `side_to_move`.
  void Tick(Colour side_to_move, int seconds) { clock_seconds_[side_to_move] += seconds; }
  // Both back to zero.
  void Reset() { *this = {}; }

  // Sets both; false, and nothing changes, when one of them is not a 16-bit number of seconds.
  bool Set(ClockTime white, ClockTime black);

  [[nodiscard]] std::int32_t ClockSeconds(Colour colour) const { return clock_seconds_[colour]; }
  // The time of `colour`, "01:05".
  [[nodiscard]] std::u16string Text(Colour colour) const;
  // White's time and Black's, "01:05 / 60:00".
  [[nodiscard]] std::u16string Text() const;
  // The time of `colour` as it is proposed for editing, "5:7".
  [[nodiscard]] std::u16string Proposal(Colour colour) const;

 private:
  PerColour<std::int32_t> clock_seconds_;
};

}  // namespace brontavia
