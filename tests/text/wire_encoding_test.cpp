#include "text/wire_encoding.h"

#include <gtest/gtest.h>

#include <QStringList>
#include <string>

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

QByteArray AllBytes() {
  QByteArray bytes;
  for (int byte = 0; byte < 256; ++byte) bytes.append(static_cast<char>(byte));
  return bytes;
}

TEST(WireEncoding, EveryByteIsOneCharacterAndComesBackAsItself) {
  const QString text = FromWire(AllBytes());
  EXPECT_EQ(text.size(), 256);
  EXPECT_EQ(ToWire(text), AllBytes());
}

TEST(WireEncoding, BytesOfAsciiAndLatin1KeepTheirNumbers) {
  for (int byte = 0; byte < 256; ++byte) {
    if (byte >= 0x80 && byte < 0xa0) continue;
    const char c = static_cast<char>(byte);
    EXPECT_EQ(FromWire(QByteArrayView(&c, 1)), QString(QChar(byte))) << "byte " << byte;
  }
}

TEST(WireEncoding, BytesFrom80To9FAreThoseOfWindows1252) {
  // The five open bytes 81, 8D, 8F, 90 and 9D are the control characters of their number.
  const QString expected =
      u"\u20ac\u0081\u201a\u0192\u201e\u2026\u2020\u2021\u02c6\u2030\u0160\u2039\u0152\u008d\u017d\u008f"
      u"\u0090\u2018\u2019\u201c\u201d\u2022\u2013\u2014\u02dc\u2122\u0161\u203a\u0153\u009d\u017e\u0178"_s;
  EXPECT_EQ(FromWire(AllBytes().mid(0x80, 0x20)), expected);
}

TEST(WireEncoding, SpanishTextHasOneByteACharacter) {
  EXPECT_EQ(ToWire(u"¡Señor, qué güena! ¿Él?"_s), QByteArray("\xa1Se\xf1or, qu\xe9 g\xfc"
                                                             "ena! \xbf\xc9l?"));
}

TEST(WireEncoding, EveryReadEndsAtACharacter) {
  const QByteArray bytes = ToWire(u"Nombre|Íñigo €"_s);
  for (qsizetype cut = 0; cut <= bytes.size(); ++cut) {
    EXPECT_EQ(FromWire(bytes.left(cut)) + FromWire(bytes.mid(cut)), u"Nombre|Íñigo €"_s) << "cut after " << cut;
  }
}

struct Writing {
  const char* Name;
  std::u16string_view Text;
  const char* Bytes;
};

void PrintTo(const Writing& writing, std::ostream* out) { *out << writing.Name; }

class UnwritableCharacters : public testing::TestWithParam<Writing> {};

TEST_P(UnwritableCharacters, BecomeOneQuestionMarkEach) {
  EXPECT_EQ(ToWire(QStringView(GetParam().Text)), QByteArray(GetParam().Bytes));
}

constexpr Writing kWritings[] = {
    {"Nothing", u"", ""},
    {"AnotherAlphabet", u"a\u0416b", "a?b"},
    {"Several", u"\u65e5\u672c|", "??|"},
    {"PairOfSurrogatesIsOneCharacter", u"a\U0001f600b", "a?b"},
    {"LoneHighSurrogate",
     u"a\xd83d"
     u"b",
     "a?b"},
    {"LoneLowSurrogate",
     u"a\xde00"
     u"b",
     "a?b"},
    {"SurrogateAtTheEnd", u"ab\xd83d", "ab?"},
    {"SurrogatesInTheWrongOrder", u"\xde00\xd83d", "??"},
    {"ReplacementCharacter", u"\ufffd", "?"},
    {"ByteOrderMark", u"\ufeffa", "?a"},
    {"SubstituteStaysItself", u"a\u001ab",
     "a\x1a"
     "b"},
    {"SubstituteBesideAnUnwritableOne", u"\u001a\u0416\u001a", "\x1a?\x1a"},
    {"LooksLikeALatinLetter", u"\uff21", "?"},
    {"CombiningAccent", u"e\u0301", "e?"},
    {"QuestionMarkStaysItself", u"?", "?"},
};
INSTANTIATE_TEST_SUITE_P(Writing, UnwritableCharacters, testing::ValuesIn(kWritings),
                         [](const auto& tested) { return std::string(tested.param.Name); });

TEST(WireEncoding, EveryCharacterOutsideTheEncodingIsWrittenAsOneQuestionMark) {
  const QString writable = FromWire(AllBytes());
  int wrong = 0;
  QStringList first_wrong;
  for (char32_t code = 0; code <= 0x10ffff; ++code) {
    const QString text = QString::fromUcs4(&code, 1);
    if (writable.contains(text) || ToWire(text) == "?") continue;
    if (++wrong <= 10) first_wrong << u"U+"_s + QString::number(code, 16);
  }
  EXPECT_EQ(wrong, 0) << "among them " << qPrintable(first_wrong.join(u' '));
}

TEST(WireEncoding, NulIsACharacterLikeAnyOther) {
  const QByteArray bytes("a\0b", 3);
  EXPECT_EQ(ToWire(FromWire(bytes)), bytes);
}

}  // namespace
}  // namespace brontavia
