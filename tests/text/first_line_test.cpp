#include "text/first_line.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <string>

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

// A directory of its own for each test, with the path of a file that is not there yet.
class FirstLine : public testing::Test {
 protected:
  [[nodiscard]] QString Path() const { return directory_.filePath(u"tested"_s); }

  void Write(const QByteArray& content) {
    QFile file(Path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(content), content.size());
  }

 private:
  QTemporaryDir directory_;
};

struct Content {
  const char* Name;
  QByteArray Bytes;
  QString Line;
};

void PrintTo(const Content& content, std::ostream* out) { *out << content.Name; }

class FirstLineOfContent : public FirstLine, public testing::WithParamInterface<Content> {};

TEST_P(FirstLineOfContent, EndsWithTheLine) {
  Write(GetParam().Bytes);
  const auto line = ReadFirstLine(Path());
  ASSERT_TRUE(line.has_value());
  EXPECT_EQ(*line, GetParam().Line);
}

const Content kContents[] = {
    {"EmptyFile", "", u""_s},
    {"NoLineBreak", "34567", u"34567"_s},
    {"CarriageReturn", "one\rtwo", u"one"_s},
    {"LineFeed", "one\ntwo", u"one"_s},
    {"Both", "one\r\ntwo\r\n", u"one"_s},
    {"EmptyFirstLine", "\ntwo", u""_s},
    {"NulInside", QByteArray("a\0b\nc", 5), QString(u"a\0b"_s)},
    {"Windows1252", "\xa1Ni\xf1o\x80!", u"¡Niño€!"_s},
    {"AsLongAsIsRead", QByteArray(65536, 'x') + "\nmore", QString(65536, u'x')},
    {"LongerThanIsRead", QByteArray(70000, 'x'), QString(65536, u'x')},
};
INSTANTIATE_TEST_SUITE_P(Content, FirstLineOfContent, testing::ValuesIn(kContents),
                         [](const auto& tested) { return std::string(tested.param.Name); });

TEST_F(FirstLine, OfNoFileIsNothing) {
  EXPECT_FALSE(ReadFirstLine(Path()).has_value());
  EXPECT_FALSE(ReadFirstLine(QString()).has_value());
}

TEST_F(FirstLine, OfAFolderIsNothing) {
  ASSERT_TRUE(QDir().mkdir(Path()));
  EXPECT_FALSE(ReadFirstLine(Path()).has_value());
}

TEST_F(FirstLine, OfAPipeThatNobodyWritesIsNothingAtOnce) {
  ASSERT_EQ(mkfifo(QFile::encodeName(Path()).constData(), S_IRUSR | S_IWUSR), 0);
  EXPECT_FALSE(ReadFirstLine(Path()).has_value());
}

TEST_F(FirstLine, OfADeviceIsNothing) {
  ASSERT_TRUE(QFile::link(u"/dev/zero"_s, Path()));
  EXPECT_FALSE(ReadFirstLine(Path()).has_value());
}

TEST_F(FirstLine, OfASocketIsNothing) {
  ASSERT_EQ(mknod(QFile::encodeName(Path()).constData(), S_IFSOCK | S_IRUSR | S_IWUSR, 0), 0);
  EXPECT_FALSE(ReadFirstLine(Path()).has_value());
}

TEST_F(FirstLine, OfAFileWhoseReadingFailsIsNothing) {
  EXPECT_FALSE(ReadFirstLine(u"/proc/self/mem"_s).has_value());  // opens, but has nothing at its beginning
}

TEST_F(FirstLine, IsReadThroughALink) {
  Write("34567\n");
  const QString link = Path() + u".link"_s;
  ASSERT_TRUE(QFile::link(Path(), link));
  EXPECT_EQ(ReadFirstLine(link), u"34567"_s);
}

}  // namespace
}  // namespace brontavia
