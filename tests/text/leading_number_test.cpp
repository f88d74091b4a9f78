#include "text/leading_number.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <clocale>
#include <cstdlib>
#include <limits>
#include <string>

namespace brontavia {
namespace {

using namespace std::string_view_literals;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Reading {
  const char* Name;
  std::u16string_view Text;
  double Value;
};

void PrintTo(const Reading& reading, std::ostream* out) { *out << reading.Name; }

class LeadingNumber : public testing::TestWithParam<Reading> {};

TEST_P(LeadingNumber, IsRead) { EXPECT_EQ(Val(GetParam().Text), GetParam().Value); }

constexpr Reading kDecimals[] = {
    {"Digits", u"34567", 34567},
    {"LeadingZeros", u"007", 7},
    {"BlanksBetweenDigits", u"4 0 0 0 0", 40000},
    {"BlanksAtBothEnds", u"  12  ", 12},
    {"TabsAndLineFeeds", u"\t1\n2\t3", 123},
    {"LettersAfterDigits", u"40000abc", 40000},
    {"DigitsAfterLetters", u"abc40000", 0},
    {"BarAfterDigits", u"4|5", 4},
    {"NothingAtAll", u"", 0},
    {"BlanksOnly", u" \t\n", 0},
    {"PlusSign", u"+7", 7},
    {"MinusSign", u"-1", -1},
    {"BlankAfterSign", u"- 1", -1},
    {"SignAlone", u"-", 0},
    {"TwoSigns", u"--7", 0},
    {"SignAfterDigits", u"7-3", 7},
    {"Fraction", u"2000.5", 2000.5},
    {"BlankInFraction", u"2000 . 5", 2000.5},
    {"FractionWithoutWhole", u".5", 0.5},
    {"NegativeFractionWithoutWhole", u"-.5", -0.5},
    {"PointWithoutFraction", u"5.", 5},
    {"PointAlone", u".", 0},
    {"SecondPointEnds", u"1.2.3", 1.2},
    {"CommaEnds", u"1,5", 1},
};
INSTANTIATE_TEST_SUITE_P(Decimal, LeadingNumber, testing::ValuesIn(kDecimals),
                         [](const auto& tested) { return std::string(tested.param.Name); });

constexpr Reading kExponents[] = {
    {"SmallLetter", u"1.5e3", 1500},   {"CapitalLetter", u"1E3", 1000},
    {"PlusSign", u"1e+3", 1000},       {"MinusSign", u"25e-2", 0.25},
    {"BlanksInside", u"1 e - 1", 0.1}, {"LetterAlone", u"1e", 1},
    {"SignWithoutDigits", u"1e+", 1},  {"LetterInsteadOfDigits", u"1ex", 1},
    {"PointEnds", u"1e2.5", 100},      {"SecondExponentEnds", u"1e2e3", 100},
    {"WithoutNumber", u"e3", 0},       {"AfterPointAlone", u".e3", 0},
    {"TooLarge", u"1e999", kInfinity}, {"TooLargeAndNegative", u"-1e999", -kInfinity},
    {"TooSmall", u"1e-999", 0},        {"FarTooLarge", u"1e99999999999999999999", kInfinity},
};
INSTANTIATE_TEST_SUITE_P(Exponent, LeadingNumber, testing::ValuesIn(kExponents),
                         [](const auto& tested) { return std::string(tested.param.Name); });

constexpr Reading kPrefixed[] = {
    {"Hexadecimal", u"&H9C40", 40000},
    {"HexadecimalInSmallLetters", u"&h9c40", 40000},
    {"HexadecimalWithBlanks", u" & H 9 C", 156},
    {"HexadecimalEndsAtLetter", u"&H1G", 1},
    {"HexadecimalEndsAtPoint", u"&H1.8", 1},
    {"HexadecimalWithoutDigits", u"&H", 0},
    {"Octal", u"&O17", 15},
    {"OctalInSmallLetter", u"&o17", 15},
    {"OctalEndsAtEight", u"&O178", 15},
    {"OctalWithoutDigits", u"&O", 0},
    {"NoPrefix", u"&12", 0},
    {"AmpersandAlone", u"&", 0},
    {"SignBeforePrefix", u"-&H10", 0},
};
INSTANTIATE_TEST_SUITE_P(Prefix, LeadingNumber, testing::ValuesIn(kPrefixed),
                         [](const auto& tested) { return std::string(tested.param.Name); });

constexpr Reading kStrangers[] = {
    {"NulEnds", u"4\0005"sv, 4},
    {"NulAtTheStart", u"\0004"sv, 0},
    {"CarriageReturnEnds", u"4\r5", 4},
    {"NoBreakSpaceEnds", u"4\u00a05", 4},
    {"ArabicDigits", u"\u0664\u0665", 0},
    {"FullWidthDigits", u"\uff14\uff15", 0},
    {"CharacterThatEndsLikeADigit", u"\u0134", 0},
    {"LoneSurrogate", u"7\xd800", 7},
    {"WordForInfinity", u"inf", 0},
    {"WordForNoNumber", u"nan", 0},
    {"HexadecimalOfAnotherKind", u"0x10", 0},
};
INSTANTIATE_TEST_SUITE_P(Stranger, LeadingNumber, testing::ValuesIn(kStrangers),
                         [](const auto& tested) { return std::string(tested.param.Name); });

TEST(LeadingNumberLength, TenThousandDigitsAreBeyondEveryNumber) {
  EXPECT_EQ(Val(std::u16string(10000, u'9')), kInfinity);
  EXPECT_EQ(Val(u"&H" + std::u16string(10000, u'F')), kInfinity);
}

TEST(LeadingNumberLength, TenThousandZerosAreStillNothing) { EXPECT_EQ(Val(std::u16string(10000, u'0') + u"7"), 7); }

// An application object takes over the user's locale, and in Spanish a comma stands before the fraction.
TEST(LeadingNumberLocale, ThePointIsThePointWhereverTheUserLives) {
  const QTemporaryDir directory;
  const std::string command =
      "localedef -i es_ES -f UTF-8 '" + directory.path().toStdString() + "/es_ES.UTF-8' >/dev/null 2>&1";
  const bool made = std::system(command.c_str()) == 0;
  qputenv("LOCPATH", directory.path().toLocal8Bit());
  const bool set = made && std::setlocale(LC_NUMERIC, "es_ES.UTF-8") != nullptr;
  const double fraction = Val(u"2001.5");
  const double comma = Val(u"2001,5");
  std::setlocale(LC_NUMERIC, "C");
  qunsetenv("LOCPATH");
  if (!set) GTEST_SKIP() << "this system can make no Spanish locale";
  EXPECT_EQ(fraction, 2001.5);
  EXPECT_EQ(comma, 2001);
}

}  // namespace
}  // namespace brontavia
