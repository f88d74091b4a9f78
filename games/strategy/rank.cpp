#include "games/strategy/rank.h"

#include <array>

namespace brontavia {
namespace {

// Beginning with rank -1.
constexpr std::array<std::u16string_view, 15> RankNames{u"Agua",       u"",        u"Bandera",  u"Bomba",    u"Espía",
                                                        u"Explorador", u"Minador", u"Sargento", u"Teniente", u"Capitán",
                                                        u"Comandante", u"Coronel", u"General",  u"Mariscal", u"Bomba"};

}  // namespace

std::u16string_view RankName(int rank) { return RankNames.at(static_cast<std::size_t>(rank) + 1); }

}  // namespace brontavia
