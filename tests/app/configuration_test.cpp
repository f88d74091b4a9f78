#include "app/configuration.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <limits>
#include <string>

namespace brontavia {
namespace {

constexpr std::int32_t kPortWithoutFile = 34567;

// A directory of its own for each test.
class Configuration : public testing::Test {
 protected:
  void Write(const QByteArray& content) {
    QFile file(Path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(content), content.size());
  }

  [[nodiscard]] QString Path() const { return directory_.filePath(QStringLiteral("Brontavia.ini")); }
  [[nodiscard]] QString Directory() const { return directory_.path(); }
  [[nodiscard]] std::int32_t Port() const { return ReadConnectionPort(Directory()); }

 private:
  QTemporaryDir directory_;
};

struct FirstLine {
  const char* Name;
  QByteArray Content;
  std::int32_t Port;
};

void PrintTo(const FirstLine& line, std::ostream* out) { *out << line.Name; }

class ConfiguredPort : public Configuration, public testing::WithParamInterface<FirstLine> {};

TEST_P(ConfiguredPort, IsTheLeadingNumberOfTheFirstLine) {
  Write(GetParam().Content);
  EXPECT_EQ(Port(), GetParam().Port);
}

constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();

const FirstLine kFirstLines[] = {
    {"Default", "34567", kPortWithoutFile},
    {"AnotherPort", "40000", 40000},
    {"BlanksBetweenDigits", "4 0 0 0 0", 40000},
    {"BlanksBetweenAllDigits", "1 2 3 4 5", 12345},
    {"BlanksAndTabsInFront", " \t40000", 40000},
    {"LettersBehind", "40000abc", 40000},
    {"LettersOnly", "puerto", 0},
    {"LettersInFront", "puerto=40000", 0},
    {"SectionOfAnIniFile", "[Red]\nPuerto=40000\n", 0},
    {"EmptyFile", "", 0},
    {"EmptyFirstLine", "\n40000", 0},
    {"EmptyFirstLineWithCarriageReturn", "\r\n40000", 0},
    {"HalfGoesDownToEven", "2000.5", 2000},
    {"HalfGoesUpToEven", "2001.5", 2002},
    {"Exponent", "4e4", 40000},
    {"Hexadecimal", "&H9C40", 40000},
    {"HexadecimalInSmallLetters", "&h9c40", 40000},
    {"Octal", "&O17", 15},
    {"Negative", "-5", -5},
    {"NegativeHalf", "-0.5", 0},
    {"AboveEveryPort", "70000", 70000},
    {"LargestOfThirtyTwoBits", "2147483647", kLargest},
    {"BeyondThirtyTwoBits", "2147483648", kLargest},
    {"BelowThirtyTwoBits", "-2147483649", kSmallest},
    {"HexadecimalBeyondThirtyTwoBits", "&HFFFFFFFF", kLargest},
    {"Infinite", "1e999", kLargest},
    {"EndsAtCarriageReturn", "40000\r12345", 40000},
    {"EndsAtLineFeed", "40000\n12345", 40000},
    {"EndsAtBoth", "40000\r\n12345\r\n", 40000},
    {"NextLineDoesNotContinueTheNumber", "4\n0000", 4},
    {"ByteOrderMarkInFront",
     "\xef\xbb\xbf"
     "40000",
     0},
    {"NulInside",
     QByteArray("40\0"
                "000",
                6),
     40},
    {"AllBytesButDigits", "\xff\xfe\x81\x8d", 0},
};
INSTANTIATE_TEST_SUITE_P(FirstLine, ConfiguredPort, testing::ValuesIn(kFirstLines),
                         [](const auto& tested) { return std::string(tested.param.Name); });

TEST_F(Configuration, WithoutFileThePortIsTheDefault) { EXPECT_EQ(Port(), kPortWithoutFile); }

TEST_F(Configuration, WithoutDirectoryThePortIsTheDefault) {
  EXPECT_EQ(ReadConnectionPort(Directory() + QStringLiteral("/missing")), kPortWithoutFile);
}

TEST_F(Configuration, ADirectoryAsGivenWithASlashIsTheSame) {
  Write("40000");
  EXPECT_EQ(ReadConnectionPort(Directory() + u'/'), 40000);
}

TEST_F(Configuration, ADirectoryOfThatNameIsNoFile) {
  ASSERT_TRUE(QDir().mkdir(Path()));
  EXPECT_EQ(Port(), kPortWithoutFile);
}

TEST_F(Configuration, APipeOfThatNameIsNoFileAndNobodyWaitsForIt) {
  ASSERT_EQ(mkfifo(QFile::encodeName(Path()).constData(), S_IRUSR | S_IWUSR), 0);
  EXPECT_EQ(Port(), kPortWithoutFile);
}

TEST_F(Configuration, ALinkToAFileIsFollowed) {
  QFile target(Directory() + QStringLiteral("/elsewhere.txt"));
  ASSERT_TRUE(target.open(QIODevice::WriteOnly));
  target.write("40000");
  target.close();
  ASSERT_TRUE(QFile::link(target.fileName(), Path()));
  EXPECT_EQ(Port(), 40000);
}

TEST_F(Configuration, ALinkToNothingIsNoFile) {
  ASSERT_TRUE(QFile::link(Directory() + QStringLiteral("/missing"), Path()));
  EXPECT_EQ(Port(), kPortWithoutFile);
}

TEST_F(Configuration, AFileThatMayNotBeReadGivesZero) {
  Write("40000");
  ASSERT_TRUE(QFile::setPermissions(Path(), QFileDevice::WriteOwner));
  // The superuser may read everything, so the test is somebody else meanwhile.
  constexpr uid_t kNobody = 65534;
  const uid_t self = geteuid();
  ASSERT_EQ(chmod(QFile::encodeName(Directory()).constData(), S_IRWXU | S_IXGRP | S_IXOTH), 0);
  if (self == 0) {
    ASSERT_EQ(seteuid(kNobody), 0);
  }
  const std::int32_t port = Port();
  if (self == 0) {
    ASSERT_EQ(seteuid(self), 0);
  }
  EXPECT_EQ(port, 0);
}

TEST_F(Configuration, AFileWhoseReadingFailsGivesZero) {
  ASSERT_TRUE(QFile::link(QStringLiteral("/proc/self/mem"), Path()));  // opens, but has nothing at its beginning
  EXPECT_EQ(Port(), 0);
}

TEST_F(Configuration, TheNameOfTheFileIsCaseSensitive) {
  QFile file(Directory() + QStringLiteral("/brontavia.INI"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("40000");
  file.close();
  EXPECT_EQ(Port(), kPortWithoutFile);
}

TEST_F(Configuration, TheFileIsLeftAsItIs) {
  Write("40000abc\r\nmore");
  ASSERT_EQ(Port(), 40000);
  QFile file(Path());
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll(), "40000abc\r\nmore");
}

TEST_F(Configuration, AHugeFileWithoutLineEndIsReadAtItsBeginningAlone) {
  constexpr qint64 kSize = qint64{1} << 33;  // sparse, so that it takes no room on disk
  Write("40000abc");
  ASSERT_TRUE(QFile::resize(Path(), kSize));
  EXPECT_EQ(Port(), 40000);
}

TEST_F(Configuration, AMillionDigitsAreTheLargestNumber) {
  Write(QByteArray(1 << 20, '9'));
  EXPECT_EQ(Port(), kLargest);
}

}  // namespace
}  // namespace brontavia
