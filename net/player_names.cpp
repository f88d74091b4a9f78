#include "net/player_names.h"

#include "text/qt_text.h"

namespace brontavia {
namespace {

constexpr int kNameLength = 15;

}  // namespace

PlayerNames::PlayerNames() {
  Set(0, {});
  Set(1, {});
}

void PlayerNames::Set(int player, QStringView name) {
  names_.at(static_cast<std::size_t>(player)) = FixedWidth(name, kNameLength);
}

QString PlayerNames::Trimmed(int player) const { return TrimBlanks(Padded(player)); }

}  // namespace brontavia
