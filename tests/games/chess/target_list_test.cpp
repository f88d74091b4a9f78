#include "games/chess/target_list.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include "tests/games/chess/chess_places.h"

namespace brontavia::test {
namespace {

TEST(Targets, AreNoneAtFirst) {
  const TargetList targets;
  EXPECT_EQ(targets.size(), 0U);
  EXPECT_EQ(targets.begin(), targets.end());
  EXPECT_FALSE(targets.Holds({}));  // what the unused entries hold is no target
}

TEST(Targets, KeepTheirOrder) {
  TargetList targets;
  targets.Add(Square("e4"));
  targets.Add(Square("a1"));
  EXPECT_EQ(std::vector<Coordinate>(targets.begin(), targets.end()), (std::vector{Square("e4"), Square("a1")}));
  EXPECT_TRUE(targets.Holds(Square("a1")));
  EXPECT_FALSE(targets.Holds(Square("a4")));
}

TEST(Targets, HaveRoomForEveryPiece) {
  TargetList targets;
  for (std::size_t n = 0; n < TargetList::kCapacity; ++n) targets.Add(Square("b2"));
  EXPECT_THROW(targets.Add(Square("b3")), std::out_of_range);
  EXPECT_EQ(targets.size(), TargetList::kCapacity);
  EXPECT_FALSE(targets.Holds(Square("b3")));
}

}  // namespace
}  // namespace brontavia::test
