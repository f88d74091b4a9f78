// The letters of the pieces in texts that tell a position.
#pragma once

#include <optional>
#include <string_view>

#include "games/chess/chess_piece.h"

namespace brontavia {

// Entry [code - 1] is a piece's letter; the blanks belong to the codes that no piece has.
inline constexpr std::u16string_view kSpanishLetters = u"PTCADR    ptcadr";
inline constexpr std::u16string_view kEnglishLetters = u"PRNBQK    prnbqk";

// Letters of short and long castling, White's first.
inline constexpr std::u16string_view kSpanishCastling = u"RDrd";
inline constexpr std::u16string_view kEnglishCastling = u"KQkq";

// The code of the piece that has `letter` in one of the tables above; nothing for a blank and for any other character.
inline std::optional<int> PieceOfLetter(char16_t letter, std::u16string_view letters) {
  const std::size_t index = letters.find(letter);
  if (letter == u' ' || index == std::u16string_view::npos) return std::nullopt;
  return static_cast<int>(index) + 1;
}

}  // namespace brontavia
