#include "games/chess/chess_messages.h"

#include <array>

#include "text/decimal.h"
#include "text/leading_number.h"
#include "text/rounding.h"

namespace brontavia {
namespace {

constexpr char16_t kSeparator = u' ';

// Takes the first field off `rest`; nothing is left of it, not even an empty field, after the last one.
std::optional<int> TakeNumber(std::optional<std::u16string_view>& rest) {
  if (!rest) return std::nullopt;
  const std::size_t end = rest->find(kSeparator);
  const int number = RoundHalfEven<std::int32_t>(Val(rest->substr(0, end)));
  rest = end == std::u16string_view::npos ? std::nullopt : std::optional(rest->substr(end + 1));
  return number;
}

std::optional<Coordinate> TakeSquare(std::optional<std::u16string_view>& rest) {
  const std::optional<int> column = TakeNumber(rest);
  const std::optional<int> row = TakeNumber(rest);
  if (!column || !row) return std::nullopt;
  const Coordinate square{.Column = *column, .Row = *row};
  return ChessBoard::IsOnBoard(square) ? std::optional(square) : std::nullopt;
}

}  // namespace

std::u16string MoveText(const ChessMove& move) {
  std::u16string text;
  for (const Coordinate square : {move.Moved.Source, move.Target}) {
    text += Decimal(square.Column) + kSeparator + Decimal(square.Row) + kSeparator;
  }
  text += move.EnPassantCapture ? u"True" : u"False";
  return text + kSeparator + Decimal(move.PromotionChoice);
}

std::optional<ReceivedMove> ReadMove(std::u16string_view payload) {
  std::optional rest(payload);
  const std::optional<Coordinate> source = TakeSquare(rest);
  const std::optional<Coordinate> target = TakeSquare(rest);
  if (!source || !target) return std::nullopt;
  return ReceivedMove{.Source = *source, .Target = *target};
}

std::u16string TurnsText(const ResumedTurns& turns) {
  return Decimal(NumberOf(turns.White)) + kSeparator + Decimal(NumberOf(turns.SideToMove)) + kSeparator +
         Decimal(NumberOf(turns.ToMove));
}

std::optional<ResumedTurns> ReadTurns(std::u16string_view payload) {
  std::optional rest(payload);
  const std::optional<int> white_number = TakeNumber(rest);
  const std::optional<int> side_number = TakeNumber(rest);
  const std::optional<int> turn_number = TakeNumber(rest);
  if (!white_number || !side_number || !turn_number) return std::nullopt;
  const auto white = PlayerOfNumber(*white_number);
  const auto side = ColourOfNumber(*side_number);
  const auto to_move = PlayerOfNumber(*turn_number);
  if (!white || !side || !to_move) return std::nullopt;
  return ResumedTurns{.White = *white, .SideToMove = *side, .ToMove = *to_move};
}

}  // namespace brontavia
