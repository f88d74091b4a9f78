// The ranks of the pieces and the codes in which a board holds them.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "net/player.h"

namespace brontavia {

// A higher rank beats a lower one but for spy, bomb, miner and flag (combat.h). The values travel.
enum class Rank : std::uint8_t {
  Flag = 1,
  Bomb,
  Spy,
  Scout,
  Miner,
  Sergeant,
  Lieutenant,
  Captain,
  Major,
  Colonel,
  General,
  Marshal,
  RevealedBomb  // what a bomb becomes once it has destroyed an attacker; never placed
};

inline constexpr int kRanks = 13;

// What an army is made of, the lowest first.
inline constexpr std::array kArmyRanks{Rank::Flag,  Rank::Bomb,     Rank::Spy,        Rank::Scout,
                                       Rank::Miner, Rank::Sergeant, Rank::Lieutenant, Rank::Captain,
                                       Rank::Major, Rank::Colonel,  Rank::General,    Rank::Marshal};

// 1..13.
constexpr int NumberOf(Rank rank) { return static_cast<int>(rank); }

// A spy or anything above it but a revealed bomb.
constexpr bool IsMovable(Rank rank) { return rank >= Rank::Spy && rank <= Rank::Marshal; }

std::u16string_view RankName(Rank rank);
// The name of the picture that stands for the rank.
std::u16string_view RankEmblem(Rank rank);

struct Piece {
  Player Side = Player::Server;
  brontavia::Rank Rank = brontavia::Rank::Flag;
  friend bool operator==(const Piece&, const Piece&) = default;
};

// What a cell of the board holds: -1 water, 0 empty land, 1..13 a piece of the server's (red) of that rank, 101..113 a
// piece of the client's (blue) of rank value - 100.
using CellCode = std::int16_t;
inline constexpr CellCode kWaterCell = -1;
inline constexpr CellCode kEmptyLand = 0;

constexpr CellCode CodeOf(Piece piece) {
  return static_cast<CellCode>(NumberOf(piece.Side) * 100 + NumberOf(piece.Rank));
}

// Nothing for any code that is no piece's.
constexpr std::optional<Piece> PieceOf(CellCode code) {
  for (const Player side : kBothPlayers) {
    const int number = code - NumberOf(side) * 100;
    if (number >= 1 && number <= kRanks) return Piece{.Side = side, .Rank = static_cast<Rank>(number)};
  }
  return std::nullopt;
}

constexpr bool IsPieceOf(Player side, CellCode code) {
  const auto piece = PieceOf(code);
  return piece && piece->Side == side;
}

// The name of the piece's rank, that of water, "" for empty land.
std::u16string_view CellContentName(CellCode code);

}  // namespace brontavia
