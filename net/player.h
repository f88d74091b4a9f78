// The two players of a session. Plain C++, so that rules may use it too.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace brontavia {

// Whose copy listens, and whose connects. The values are the numbers of the players on the wire.
enum class Player : std::uint8_t { Server = 0, Client = 1 };

inline constexpr std::array kBothPlayers{Player::Server, Player::Client};

constexpr Player OpponentOf(Player player) { return player == Player::Server ? Player::Client : Player::Server; }

// 0 for the server, 1 for the client.
constexpr int NumberOf(Player player) { return static_cast<int>(player); }

// Nothing for any number but 0 and 1.
constexpr std::optional<Player> PlayerOfNumber(double number) {
  if (number == 0) return Player::Server;
  if (number == 1) return Player::Client;
  return std::nullopt;
}

// One entry for each player.
template <typename Entry>
struct PerPlayer {
  Entry Server{};
  Entry Client{};

  constexpr Entry& operator[](Player player) { return player == Player::Server ? Server : Client; }
  constexpr const Entry& operator[](Player player) const { return player == Player::Server ? Server : Client; }
  friend bool operator==(const PerPlayer&, const PerPlayer&) = default;
};

}  // namespace brontavia
