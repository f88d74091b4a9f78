#include "games/strategy/strategy_board.h"

#include <algorithm>
#include <stdexcept>

#include "text/leading_number.h"
#include "text/rounding.h"

namespace brontavia {
namespace {

constexpr std::size_t kArmyFieldLength = 4;

std::u16string FieldOf(CellCode code) {
  code = std::max(code, kEmptyLand);  // water is no piece
  std::u16string field;
  for (int unit = 100; unit > 0; unit /= 10) field += static_cast<char16_t>(u'0' + code / unit % 10);
  return field + u',';
}

CellCode ReadField(std::u16string_view field, Player side, CellCode before) {
  const auto code = RoundHalfEven<CellCode>(Val(field));
  const auto piece = PieceOf(code);
  const bool sound = piece && piece->Side == side && piece->Rank != Rank::RevealedBomb;
  return sound || code == before ? code : kEmptyLand;
}

}  // namespace

StrategyBoard::StrategyBoard(const StrategyVariant& variant)
    : variant_(variant), cells_(static_cast<std::size_t>(variant.Columns * variant.Rows)) {
  Clear();
}

bool StrategyBoard::Holds(Coordinate cell) const {
  return cell.Column >= 1 && cell.Column <= variant_.Columns && cell.Row >= 1 && cell.Row <= variant_.Rows;
}

std::size_t StrategyBoard::Position(Coordinate cell) const {
  if (!Holds(cell)) throw std::out_of_range("cell outside the board");
  const int position = (cell.Column - 1) + (cell.Row - 1) * variant_.Columns;
  return static_cast<std::size_t>(position);
}

void StrategyBoard::Clear() {
  std::ranges::fill(cells_, kEmptyLand);
  for (const Coordinate cell : variant_.Water) Set(cell, kWaterCell);
}

std::u16string StrategyBoard::ArmyText() const {
  std::u16string text;
  for (int row = variant_.ZoneRows; row >= 1; --row) {
    for (int column = variant_.Columns; column >= 1; --column) text += FieldOf(At({.Column = column, .Row = row}));
  }
  return text;
}

void StrategyBoard::TakeArmy(std::u16string_view data, Player side) {
  const std::size_t fields = std::min(data.size() / kArmyFieldLength, static_cast<std::size_t>(variant_.ArmySize()));
  for (std::size_t field = 0; field < fields; ++field) {
    const int index = static_cast<int>(field);
    const Coordinate cell{.Column = 1 + index % variant_.Columns,
                          .Row = variant_.EnemyZoneRow() + index / variant_.Columns};
    Set(cell, ReadField(data.substr(field * kArmyFieldLength, kArmyFieldLength), side, At(cell)));
  }
}

}  // namespace brontavia
