#include "net/player_names.h"

#include "text/qt_text.h"

namespace brontavia {
namespace {

constexpr int kNameLength = 15;

}  // namespace

PlayerNames::PlayerNames() {
  for (const Player player : kBothPlayers) Set(player, {});
}

void PlayerNames::Set(Player player, QStringView name) {
  padded_[player] = FixedWidth(name, kNameLength);
  trimmed_[player] = TrimBlanks(padded_[player]);
}

}  // namespace brontavia
