// The names of the two players: texts of exactly 15 characters, cut or padded with blanks.
#pragma once

#include <QString>
#include <array>

namespace brontavia {

class PlayerNames {
 public:
  PlayerNames();

  // `player` is 0 (server) or 1 (client) everywhere.
  void Set(int player, QStringView name);
  [[nodiscard]] const QString& Padded(int player) const { return names_.at(static_cast<std::size_t>(player)); }
  // Without outer blanks.
  [[nodiscard]] QString Trimmed(int player) const;

 private:
  std::array<QString, 2> names_;
};

}  // namespace brontavia
