#include "games/naval/sea_drawing.h"

#include <gtest/gtest.h>

#include <set>

namespace brontavia::test {
namespace {

TEST(SeaDrawing, OfEveryKindIsUnpackedAsItWasPackedAndNoneIsAnother) {
  std::set<int> seen;
  const auto expect_back = [&](const SeaDrawing& drawing) {
    EXPECT_EQ(Unpacked(Packed(drawing)), drawing);
    EXPECT_TRUE(seen.insert(Packed(drawing)).second);
  };
  for (const bool ring : {false, true}) {
    for (const bool margin : {false, true}) {
      expect_back({.Margin = margin, .Ring = ring});
      for (int length = 2; length <= 5; ++length) {
        for (int segment = 1; segment <= length; ++segment) {
          for (const bool upright : {false, true}) {
            for (const bool sunk : {false, true}) expect_back({length, segment, upright, sunk, margin, ring});
          }
        }
      }
    }
  }
}

TEST(SeaDrawing, OfNothingIsZero) { EXPECT_EQ(Packed({}), 0); }

}  // namespace
}  // namespace brontavia::test
