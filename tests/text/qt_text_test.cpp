#include "text/qt_text.h"

#include <gtest/gtest.h>

#include <string>

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

TEST(QtText, NumbersAreReadAsElsewhere) {
  EXPECT_EQ(Val(QStringView(u"4 0 0 0 0 puertos")), 40000);
  EXPECT_EQ(Val(QStringView()), 0);
}

TEST(QtText, BlanksAreTrimmedIntoACopy) {
  QString text = u"  Ana Luz "_s;
  const QString trimmed = TrimBlanks(text);
  text.fill(u'x');
  EXPECT_EQ(trimmed, u"Ana Luz"_s);
  EXPECT_EQ(TrimBlanks(QStringView()), QString());
}

TEST(QtText, CharactersLookAtTheTextItself) {
  const QString text = u"niño"_s;
  EXPECT_EQ(Characters(text), u"niño");
  EXPECT_EQ(Characters(text).data(), QStringView(text).utf16());
  EXPECT_TRUE(Characters(QStringView()).empty());
}

struct Fixing {
  const char* Name;
  QStringView Text;
  QStringView Fixed;
};

void PrintTo(const Fixing& fixing, std::ostream* out) { *out << fixing.Name; }

class FixedWidthText : public testing::TestWithParam<Fixing> {};

TEST_P(FixedWidthText, HasExactlyThatManyCharacters) {
  const QString fixed = FixedWidth(GetParam().Text, 5);
  EXPECT_EQ(fixed, GetParam().Fixed.toString());
  EXPECT_EQ(fixed.size(), 5);
}

constexpr Fixing kFixings[] = {
    {"NothingBecomesBlanks", u"", u"     "},
    {"ShortIsPaddedOnTheRight", u"Ana", u"Ana  "},
    {"ExactStays", u"María", u"María"},
    {"LongIsCut", u"Servidor", u"Servi"},
    {"BlanksInFrontStay", u"  Ana", u"  Ana"},
    {"CutMayEndInABlank", u"Ana  Luz", u"Ana  "},
    {"LineBreaksCountAsOne", u"\r\n", u"\r\n   "},
};
INSTANTIATE_TEST_SUITE_P(Fixing, FixedWidthText, testing::ValuesIn(kFixings),
                         [](const auto& tested) { return std::string(tested.param.Name); });

struct Cut {
  const char* Name;
  int Position;
  QStringView Rest;
};

void PrintTo(const Cut& cut, std::ostream* out) { *out << cut.Name; }

class RestOfText : public testing::TestWithParam<Cut> {};

TEST_P(RestOfText, BeginsAtAPositionCountedFromOne) {
  EXPECT_EQ(From(u"Jug|-1|4", GetParam().Position).toString(), GetParam().Rest.toString());
}

constexpr Cut kCuts[] = {
    {"FirstIsTheWhole", 1, u"Jug|-1|4"}, {"Middle", 5, u"-1|4"},   {"Last", 8, u"4"},
    {"BehindTheLast", 9, u""},           {"FarBehind", 1000, u""},
};
INSTANTIATE_TEST_SUITE_P(Cut, RestOfText, testing::ValuesIn(kCuts),
                         [](const auto& tested) { return std::string(tested.param.Name); });

struct Showing {
  const char* Name;
  QStringView Text;
  QStringView Shown;
};

void PrintTo(const Showing& showing, std::ostream* out) { *out << showing.Name; }

class TextForScreen : public testing::TestWithParam<Showing> {};

TEST_P(TextForScreen, HasNoControlCharactersButLineBreaks) {
  EXPECT_EQ(ForScreen(GetParam().Text.toString()), GetParam().Shown.toString());
}

constexpr Showing kShowings[] = {
    {"Nothing", u"", u""},
    {"PlainTextStays", u" ¿Señor Íñigo? 5 € ", u" ¿Señor Íñigo? 5 € "},
    {"EveryKindOfLineBreak", u"a\r\nb\rc\nd\n\re", u"a\nb\nc\nd\n\ne"},
    {"Nul", QStringView(u"a\0b", 3), u"a\ufffdb"},
    {"Tab", u"a\tb", u"a\ufffdb"},
    {"FirstAndLastOfTheLowerOnes", u"\u0001\u001f ", u"\ufffd\ufffd "},
    {"DeleteAndTheUpperOnes", u"~\u007f\u0080\u009f\u00a0", u"~\ufffd\ufffd\ufffd\u00a0"},
};
INSTANTIATE_TEST_SUITE_P(Showing, TextForScreen, testing::ValuesIn(kShowings),
                         [](const auto& tested) { return std::string(tested.param.Name); });

TEST(QtText, LineBreakIsCarriageReturnAndLineFeed) { EXPECT_EQ(kCrLf.toString().toLatin1(), QByteArray("\x0d\x0a")); }

}  // namespace
}  // namespace brontavia
