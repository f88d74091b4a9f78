#include "text/decimal.h"

#include <gtest/gtest.h>

namespace brontavia {
namespace {

TEST(Decimal, IsWrittenWithoutPadding) {
  EXPECT_EQ(Decimal(0), u"0");
  EXPECT_EQ(Decimal(7), u"7");
  EXPECT_EQ(Decimal(1234567890123), u"1234567890123");
}

TEST(Decimal, HasASignWhenNegative) { EXPECT_EQ(Decimal(-32768), u"-32768"); }

}  // namespace
}  // namespace brontavia
