#include "text/blanks.h"

#include <gtest/gtest.h>

#include <string>

namespace brontavia {
namespace {

struct Trimming {
  const char* Name;
  std::u16string_view Text;
  std::u16string_view Trimmed;
};

void PrintTo(const Trimming& trimming, std::ostream* out) { *out << trimming.Name; }

class Blanks : public testing::TestWithParam<Trimming> {};

TEST_P(Blanks, AreTrimmedAtBothEndsAlone) { EXPECT_EQ(TrimBlanks(GetParam().Text), GetParam().Trimmed); }

constexpr Trimming kTrimmings[] = {
    {"Nothing", u"", u""},
    {"BlanksOnly", u"   ", u""},
    {"NoBlanks", u"Ana", u"Ana"},
    {"InFront", u"  Ana", u"Ana"},
    {"Behind", u"Ana  ", u"Ana"},
    {"InsideStay", u" Ana  Luz ", u"Ana  Luz"},
    {"SingleCharacter", u" x ", u"x"},
    {"TabsStay", u"\tAna\t", u"\tAna\t"},
    {"LineBreaksStay", u" \r\nAna\r\n ", u"\r\nAna\r\n"},
    {"NoBreakSpaceStays", u"\u00a0Ana", u"\u00a0Ana"},
};
INSTANTIATE_TEST_SUITE_P(Trimming, Blanks, testing::ValuesIn(kTrimmings),
                         [](const auto& tested) { return std::string(tested.param.Name); });

}  // namespace
}  // namespace brontavia
