#include "games/strategy/rank.h"

namespace brontavia {
namespace {

constexpr std::array<std::u16string_view, kRanks> RankNames{
    u"Bandera", u"Bomba",      u"Espía",   u"Explorador", u"Minador",  u"Sargento", u"Teniente",
    u"Capitán", u"Comandante", u"Coronel", u"General",    u"Mariscal", u"Bomba"};

}  // namespace

std::u16string_view RankName(Rank rank) { return RankNames.at(static_cast<std::size_t>(rank) - 1); }

std::u16string_view CellContentName(CellCode code) {
  if (const auto piece = PieceOf(code)) return RankName(piece->Rank);
  return code == kWaterCell ? u"Agua" : u"";
}

}  // namespace brontavia
