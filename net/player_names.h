// The names of the two players: texts of exactly 15 characters, cut or padded with blanks.
#pragma once

#include <QString>

#include "net/player.h"

namespace brontavia {

class PlayerNames {
 public:
  PlayerNames();

  void Set(Player player, QStringView name);
  [[nodiscard]] const QString& Padded(Player player) const { return padded_[player]; }
  // Without outer blanks.
  [[nodiscard]] const QString& Trimmed(Player player) const { return trimmed_[player]; }

 private:
  PerPlayer<QString> padded_;
  PerPlayer<QString> trimmed_;
};

}  // namespace brontavia
