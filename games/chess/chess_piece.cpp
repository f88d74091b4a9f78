#include "games/chess/chess_piece.h"

#include <stdexcept>

namespace brontavia {
namespace {

// Entry [code - 1]; no piece has the codes 7 to 10.
constexpr std::array<std::u16string_view, kHighestPiece> kNames{u"Peón blanco",
                                                                u"Torre blanca",
                                                                u"Caballo blanco",
                                                                u"Alfil blanco",
                                                                u"Dama blanca",
                                                                u"Rey blanco",
                                                                u"",
                                                                u"",
                                                                u"",
                                                                u"",
                                                                u"Peón negro",
                                                                u"Torre negra",
                                                                u"Caballo negro",
                                                                u"Alfil negro",
                                                                u"Dama negra",
                                                                u"Rey negro"};

}  // namespace

std::u16string_view PieceName(int piece) {
  const std::u16string_view name = kNames.at(static_cast<std::size_t>(piece) - 1);
  if (name.empty()) throw std::out_of_range("no such piece");
  return name;
}

char16_t PieceEnding(int piece) { return PieceName(piece).back(); }

}  // namespace brontavia
