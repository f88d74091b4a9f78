// The names of the two players: texts of exactly 15 characters, cut or padded with blanks.
#pragma once

#include <QString>

#include "net/player.h"

namespace brontavia {

class PlayerNames {
 public:
  PlayerNames();

  void Set(Player player, QStringView name);
  [[nodiscard]] const QString& Padded(Player player) const { return names_[player]; }
  // Without outer blanks.
  [[nodiscard]] QString Trimmed(Player player) const;

 private:
  PerPlayer<QString> names_;
};

}  // namespace brontavia
