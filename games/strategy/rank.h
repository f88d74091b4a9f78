// The ranks of the pieces and the codes in which a board holds them.
#pragma once

#include <cstdint>
#include <string_view>

#include "net/player.h"

namespace brontavia {

// A piece's rank, 1..13. A higher one beats a lower one but for spy, bomb, miner and flag (combat.h).
namespace rank {
inline constexpr int kFlag = 1;
inline constexpr int kBomb = 2;
inline constexpr int kSpy = 3;
inline constexpr int kScout = 4;
inline constexpr int kMiner = 5;
inline constexpr int kMarshal = 12;
inline constexpr int RevealedBomb = 13;  // what a bomb becomes once it has destroyed an attacker; never placed
}  // namespace rank

// The ranks that an army is made of are 1..12.
inline constexpr int kRanks = 12;

// Name of rank 1..13, "" for 0 (empty land) and the name of water for -1. Throws std::out_of_range for any other.
std::u16string_view RankName(int rank);

// What a cell of the board holds: -1 water, 0 empty land, 1..13 a piece of side 0 (red, the server's) of that rank,
// 101..113 a piece of side 1 (blue, the client's) of rank value - 100.
using CellCode = std::int16_t;
inline constexpr CellCode kWaterCell = -1;
inline constexpr CellCode kEmptyLand = 0;

constexpr int RankOf(CellCode code) { return code % 100; }
// Of a piece.
constexpr Player SideOf(CellCode code) { return code < 100 ? Player::Server : Player::Client; }
constexpr CellCode PieceCode(Player side, int rank) { return static_cast<CellCode>(NumberOf(side) * 100 + rank); }
constexpr bool IsPiece(CellCode code) { return code > kEmptyLand; }
constexpr bool IsPieceOf(Player side, CellCode code) { return IsPiece(code) && SideOf(code) == side; }
// A spy or anything above it but a revealed bomb.
constexpr bool IsMovable(CellCode code) { return RankOf(code) >= rank::kSpy && RankOf(code) <= rank::kMarshal; }

}  // namespace brontavia
