#include "games/chess/chess_clock.h"

#include <cstdlib>
#include <limits>

#include "text/decimal.h"
#include "text/leading_number.h"
#include "text/rounding.h"

namespace brontavia {
namespace {

constexpr std::int32_t kMinute = 60;  // seconds
constexpr char16_t kColon = u':';

// At least two digits.
std::u16string TwoDigits(std::int32_t value) {
  const std::u16string digits = Decimal(std::abs(value));
  return std::u16string(value < 0 ? u"-" : u"") + (digits.size() < 2 ? u"0" : u"") + digits;
}

std::u16string MinutesAndSeconds(std::int32_t seconds) {
  return TwoDigits(seconds / kMinute) + kColon + TwoDigits(seconds % kMinute);
}

std::int32_t WholeNumber(std::u16string_view text) { return RoundHalfEven<std::int32_t>(Val(text)); }

bool Fits(std::int64_t seconds) {
  using Limits = std::numeric_limits<std::int16_t>;
  return seconds >= Limits::min() && seconds <= Limits::max();
}

// Minutes alone must fit too.
std::optional<std::int32_t> SecondsOf(ClockTime time) {
  const std::int64_t minutes = std::int64_t{time.Minutes} * kMinute;
  const std::int64_t seconds = minutes + time.Seconds;
  if (!Fits(minutes) || !Fits(seconds)) return std::nullopt;
  return static_cast<std::int32_t>(seconds);
}

}  // namespace

std::optional<ClockTime> ReadClockTime(std::u16string_view answer) {
  const std::size_t colon = answer.find(kColon);
  if (colon == std::u16string_view::npos) return std::nullopt;
  const ClockTime time{.Minutes = WholeNumber(answer.substr(0, colon)),
                       .Seconds = WholeNumber(answer.substr(colon + 1))};
  return time.Seconds < kMinute ? std::optional(time) : std::nullopt;
}

bool ChessClock::Set(ClockTime white, ClockTime black) {
  const std::optional<std::int32_t> white_seconds = SecondsOf(white);
  const std::optional<std::int32_t> black_seconds = SecondsOf(black);
  if (!white_seconds || !black_seconds) return false;
  clock_seconds_ = {.White = *white_seconds, .Black = *black_seconds};
  return true;
}

std::u16string ChessClock::Text(Colour colour) const { return MinutesAndSeconds(clock_seconds_[colour]); }

std::u16string ChessClock::Text() const { return Text(Colour::White) + u" / " + Text(Colour::Black); }

std::u16string ChessClock::Proposal(Colour colour) const {
  const std::int32_t seconds = clock_seconds_[colour];
  return Decimal(seconds / kMinute) + kColon + Decimal(seconds % kMinute);
}

}  // namespace brontavia
