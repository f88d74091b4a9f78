// The pieces of chess: their codes and the names under which players know them.
#pragma once

#include <array>
#include <string_view>

namespace brontavia {

// ---- Colours ----

inline constexpr int kWhite = 0;
inline constexpr int kBlack = 1;
inline constexpr int kNoColour = -1;  // of an empty square

inline constexpr int OtherColour(int colour) { return 1 - colour; }

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

inline constexpr int PieceOf(int kind, int colour) { return kind + kBlackOffset * colour; }
inline constexpr int KindOf(int piece) { return piece % kBlackOffset; }

// kNoColour for kNoPiece.
inline constexpr int ColourOf(int piece) {
  if (piece == kNoPiece) return kNoColour;
  return piece < kBlackOffset ? kWhite : kBlack;
}

// What a pawn may become, in the order of the menu that asks.
inline constexpr std::array<int, 4> kPromotionChoices{kRook, kKnight, kBishop, kQueen};

// ---- Names. They throw std::out_of_range for anything but 1..6 and 11..16 ----

// "Torre blanca", "Peón negro".
std::u16string_view PieceName(int piece);
// The ending that agrees with the name: "a" for rooks and queens, otherwise "o".
char16_t PieceEnding(int piece);

}  // namespace brontavia
