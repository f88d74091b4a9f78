// The pieces of chess: their codes and the names under which players know them.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace brontavia {

// ---- Colours ----

enum class Colour : std::uint8_t { White, Black };

inline constexpr std::array kBothColours{Colour::White, Colour::Black};

constexpr Colour OpponentOf(Colour colour) { return colour == Colour::White ? Colour::Black : Colour::White; }

// As messages and questions tell it: 0 for White, 1 for Black.
constexpr int NumberOf(Colour colour) { return colour == Colour::White ? 0 : 1; }

// Nothing for any number but 0 and 1.
constexpr std::optional<Colour> ColourOfNumber(int number) {
  if (number == 0) return Colour::White;
  if (number == 1) return Colour::Black;
  return std::nullopt;
}

// One entry for each side.
template <typename Entry>
struct PerColour {
  Entry White{};
  Entry Black{};

  constexpr Entry& operator[](Colour colour) { return colour == Colour::White ? White : Black; }
  constexpr const Entry& operator[](Colour colour) const { return colour == Colour::White ? White : Black; }
  friend bool operator==(const PerColour&, const PerColour&) = default;
};

// ---- Codes: 0 for no piece, 1..6 the kinds in white, 11..16 the same in black ----

inline constexpr int kNoPiece = 0;
inline constexpr int kPawn = 1;
inline constexpr int kRook = 2;
inline constexpr int kKnight = 3;
inline constexpr int kBishop = 4;
inline constexpr int kQueen = 5;
inline constexpr int kKing = 6;
inline constexpr int kBlackOffset = 10;
inline constexpr int kHighestPiece = kBlackOffset + kKing;

constexpr int PieceOf(int kind, Colour colour) { return colour == Colour::White ? kind : kind + kBlackOffset; }
// kNoPiece for kNoPiece.
constexpr int KindOf(int piece) { return piece % kBlackOffset; }
// Of a piece; kNoPiece has no colour.
constexpr Colour ColourOf(int piece) { return piece < kBlackOffset ? Colour::White : Colour::Black; }

// What a pawn may become, in the order of the menu that asks.
inline constexpr std::array kPromotionChoices{kRook, kKnight, kBishop, kQueen};

// ---- Names. They throw std::out_of_range for anything but 1..6 and 11..16 ----

// "Torre blanca", "Peón negro".
std::u16string_view PieceName(int piece);
// The ending that agrees with the name: "a" for rooks and queens, otherwise "o".
char16_t PieceEnding(int piece);

}  // namespace brontavia
