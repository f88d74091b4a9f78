#include "games/strategy/rank.h"

namespace brontavia {
namespace {

constexpr std::array<std::u16string_view, kRanks> RankNames{
    u"Bandera", u"Bomba",      u"Espía",   u"Explorador", u"Minador",  u"Sargento", u"Teniente",
    u"Capitán", u"Comandante", u"Coronel", u"General",    u"Mariscal", u"Bomba"};

constexpr std::array<std::u16string_view, kRanks> RankEmblems{
    u"rank_bandera",  u"rank_bomba",    u"rank_espia",   u"rank_explorador", u"rank_minador",
    u"rank_sargento", u"rank_teniente", u"rank_capitan", u"rank_comandante", u"rank_coronel",
    u"rank_general",  u"rank_mariscal", u"rank_bomba"};

}  // namespace

std::u16string_view RankName(Rank rank) { return RankNames.at(static_cast<std::size_t>(rank) - 1); }

std::u16string_view RankEmblem(Rank rank) { return RankEmblems.at(static_cast<std::size_t>(rank) - 1); }

std::u16string_view CellContentName(CellCode code) {
  if (const auto piece = PieceOf(code)) return RankName(piece->Rank);
  return code == kWaterCell ? u"Agua" : u"";
}

}  // namespace brontavia
