#include "net/player_names.h"

#include "text/qt_text.h"

namespace brontavia {
namespace {

constexpr int kNameLength = 15;

}  // namespace

PlayerNames::PlayerNames() {
  for (const Player player : kBothPlayers) Set(player, {});
}

void PlayerNames::Set(Player player, QStringView name) { names_[player] = FixedWidth(name, kNameLength); }

QString PlayerNames::Trimmed(Player player) const { return TrimBlanks(Padded(player)); }

}  // namespace brontavia
