#include "games/strategy/move_message.h"

#include "text/leading_number.h"
#include "text/rounding.h"

namespace brontavia {
namespace {

constexpr std::size_t kFieldLength = 3;

std::u16string FieldOf(int value) {
  return {static_cast<char16_t>(u'0' + value / 10), static_cast<char16_t>(u'0' + value % 10), u','};
}

int ReadField(std::u16string_view payload, std::size_t field) {
  const std::size_t from = field * kFieldLength;
  if (from >= payload.size()) return 0;
  return RoundHalfEven<std::int16_t>(Val(payload.substr(from, kFieldLength)));
}

}  // namespace

std::u16string StrategyMoveText(const StrategyMove& move) {
  return FieldOf(move.From.Column) + FieldOf(move.From.Row) + FieldOf(move.To.Column) + FieldOf(move.To.Row) +
         FieldOf(static_cast<int>(move.Result));
}

std::optional<StrategyMove> ReadStrategyMove(std::u16string_view payload) {
  const int result = ReadField(payload, 4);
  if (result < static_cast<int>(CombatResult::AttackerDestroyed) ||
      result > static_cast<int>(CombatResult::BothDestroyed)) {
    return std::nullopt;
  }
  return StrategyMove{.From = {.Column = ReadField(payload, 0), .Row = ReadField(payload, 1)},
                      .To = {.Column = ReadField(payload, 2), .Row = ReadField(payload, 3)},
                      .Result = static_cast<CombatResult>(result)};
}

}  // namespace brontavia
