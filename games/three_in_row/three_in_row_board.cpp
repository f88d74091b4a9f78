#include "games/three_in_row/three_in_row_board.h"

#include <algorithm>
#include <limits>

#include "text/decimal.h"
#include "text/leading_number.h"
#include "text/rounding.h"

namespace brontavia {
namespace {

constexpr std::array<std::array<int, 3>, 8> kLines{
    {{0, 1, 2}, {0, 3, 6}, {0, 4, 8}, {1, 4, 7}, {2, 5, 8}, {2, 4, 6}, {3, 4, 5}, {6, 7, 8}}};

constexpr std::int16_t kPiecesToPlace = 3;

}  // namespace

std::u16string TerMoveText(TerMove move) { return Decimal(move.Lifted) + u"|" + Decimal(move.Target); }

std::optional<TerMove> ReadTerMove(std::u16string_view payload) {
  const auto separator = payload.find(u'|');
  if (separator == std::u16string_view::npos) return std::nullopt;
  const auto lifted = RoundHalfEven<std::int32_t>(Val(payload.substr(0, separator)));
  const auto target = RoundHalfEven<std::int32_t>(Val(payload.substr(separator + 1)));
  if (lifted >= kTerCells || target < 0 || target >= kTerCells) return std::nullopt;
  return TerMove{.Lifted = std::max(lifted, kNoCell), .Target = target};
}

TerClick ThreeInRowBoard::Click(Player player, int cell) {
  const char16_t own = PlayerSymbols[player];
  if (placing_phase_ && At(cell) != kEmpty) return TerClick::NotEmpty;
  if (!placing_phase_) {
    if (At(cell) != own) return TerClick::NotOwnPiece;
    Cell(cell) = kEmpty;
    pos_quitada_ = cell;
    placing_phase_ = true;
    return TerClick::Lifted;
  }
  Cell(cell) = own;
  if (cell == pos_quitada_) {
    pos_quitada_ = kNoCell;
    placing_phase_ = false;
    return TerClick::PutBack;
  }
  std::int16_t& placed = pieces_placed_[player];
  if (placed < std::numeric_limits<std::int16_t>::max()) ++placed;
  move_ = {.Lifted = pos_quitada_, .Target = cell};
  return TerClick::Moved;
}

void ThreeInRowBoard::EndMove(Player player) {
  pos_quitada_ = kNoCell;
  // Without effect on play: BeginMove sets the phase anew before this player moves again.
  placing_phase_ = PiecesPlaced(player) < kPiecesToPlace + 1;
}

void ThreeInRowBoard::Apply(Player mover, TerMove move) {
  if (move.Lifted != kNoCell) Cell(move.Lifted) = kEmpty;
  Cell(move.Target) = PlayerSymbols[mover];
}

void ThreeInRowBoard::BeginMove(Player player) { placing_phase_ = PiecesPlaced(player) < kPiecesToPlace; }

std::optional<std::array<int, 3>> ThreeInRowBoard::Line() const {
  const auto* found = std::find_if(kLines.begin(), kLines.end(), [this](const auto& line) {
    return At(line[0]) != kEmpty && At(line[1]) == At(line[0]) && At(line[2]) == At(line[0]);
  });
  if (found == kLines.end()) return std::nullopt;
  return *found;
}

}  // namespace brontavia
