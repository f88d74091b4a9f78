#include "text/rounding.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace brontavia {
namespace {

struct Rounding {
  const char* Name;
  double Value;
  std::int32_t Rounded;
};

void PrintTo(const Rounding& rounding, std::ostream* out) { *out << rounding.Name; }

class HalfEven : public testing::TestWithParam<Rounding> {};

TEST_P(HalfEven, RoundsToTheNearest) { EXPECT_EQ(RoundHalfEven<std::int32_t>(GetParam().Value), GetParam().Rounded); }

constexpr Rounding kRoundings[] = {
    {"WholeNumberStays", 40000, 40000},
    {"HalfGoesDownToEven", 2000.5, 2000},
    {"HalfGoesUpToEven", 2001.5, 2002},
    {"HalfGoesDownToZero", 0.5, 0},
    {"OneAndAHalf", 1.5, 2},
    {"TwoAndAHalf", 2.5, 2},
    {"NegativeHalfGoesToZero", -0.5, 0},
    {"NegativeOneAndAHalf", -1.5, -2},
    {"NegativeTwoAndAHalf", -2.5, -2},
    {"JustBelowHalf", 0.49999999999999994, 0},
    {"JustAboveHalf", 0.50000000000000011, 1},
    {"NegativeBelowHalf", -0.4, 0},
    {"NegativeAboveHalf", -0.6, -1},
    {"LargestStays", 2147483647.0, 2147483647},
    {"LargestAndAHalf", 2147483647.5, 2147483647},
    {"SmallestStays", -2147483648.0, -2147483647 - 1},
    {"BeyondTheLargest", 2147483648.0, 2147483647},
    {"BeyondTheSmallest", -2147483649.0, -2147483647 - 1},
    {"FarBeyond", 1e300, 2147483647},
    {"FarBelow", -1e300, -2147483647 - 1},
    {"Infinity", std::numeric_limits<double>::infinity(), 2147483647},
    {"NegativeInfinity", -std::numeric_limits<double>::infinity(), -2147483647 - 1},
    {"NoNumber", std::numeric_limits<double>::quiet_NaN(), 0},
};
INSTANTIATE_TEST_SUITE_P(Rounding, HalfEven, testing::ValuesIn(kRoundings),
                         [](const auto& tested) { return std::string(tested.param.Name); });

TEST(HalfEvenOfSixteenBits, SaturatesAtItsOwnBounds) {
  EXPECT_EQ(RoundHalfEven<std::int16_t>(32767.4), 32767);
  EXPECT_EQ(RoundHalfEven<std::int16_t>(32767.5), 32767);
  EXPECT_EQ(RoundHalfEven<std::int16_t>(40000), 32767);
  EXPECT_EQ(RoundHalfEven<std::int16_t>(-32768.5), -32768);
  EXPECT_EQ(RoundHalfEven<std::int16_t>(-40000), -32768);
}

}  // namespace
}  // namespace brontavia
