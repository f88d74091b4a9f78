#include "games/strategy/variant.h"

namespace brontavia {
namespace {

// C5, C6, D5, D6, G5, G6, H5, H6
constexpr std::array<Coordinate, 8> kLargeWater{{{3, 5}, {3, 6}, {4, 5}, {4, 6}, {7, 5}, {7, 6}, {8, 5}, {8, 6}}};
// B4, B5, F4, F5
constexpr std::array<Coordinate, 4> kSmallWater{{{2, 4}, {2, 5}, {6, 4}, {6, 5}}};

}  // namespace

// The counts: flag, bombs, spy, scouts, miners, sergeants, lieutenants, captains, majors, colonels, general, marshal.
constexpr StrategyVariant kEstratega{.Columns = 10,
                                     .Rows = 10,
                                     .ZoneRows = 4,
                                     .Water = kLargeWater,
                                     .ArmyCounts = RankCounts({1, 6, 1, 8, 5, 4, 4, 4, 3, 2, 1, 1})};

constexpr StrategyVariant kMiniEstratega{.Columns = 7,
                                         .Rows = 8,
                                         .ZoneRows = 3,
                                         .Water = kSmallWater,
                                         .ArmyCounts = RankCounts({1, 3, 1, 4, 3, 0, 2, 2, 2, 1, 1, 1})};

}  // namespace brontavia
