// WritePositionFile: whatever happens while a position is written, the file holds a whole one.
#include "games/chess/position_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cerrno>
#include <functional>

#include "tests/games/chess/meddled_process.h"
#include "text/first_line.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

const QString kOld = u"tcadract/pppppppp/8/8/4P3/8/PPPP1PPP/TCADRACT/N RDrd e6 0 1"_s;
const QString kNew = u"8/8/8/8/8/8/8/R6r/B - - 0 9"_s;

enum Result { kSilent, kTold };

Result Save(const QString& path) { return WritePositionFile(path, kNew) ? kTold : kSilent; }

QByteArray ContentOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class PositionFile : public testing::Test {
 protected:
  [[nodiscard]] QString InFolder(const QString& name) const { return folder_.filePath(name); }

 private:
  QTemporaryDir folder_;
};

// ---- The end in the middle ----

struct Way {
  const char* Name;
  QString File;
  bool Exists;
};

void PrintTo(const Way& way, std::ostream* out) { *out << way.Name; }

class EverySystemCall : public PositionFile, public testing::WithParamInterface<Way> {
 protected:
  // What the file holds before each try.
  void PutBack() const {
    QFile::remove(Path());
    ASSERT_TRUE(!GetParam().Exists || !WritePositionFile(Path(), kOld));
  }
  [[nodiscard]] QString Path() const { return InFolder(GetParam().File); }
  [[nodiscard]] std::optional<QString> Before() const { return GetParam().Exists ? std::optional(kOld) : std::nullopt; }
  // The line that the program would read; an empty file is one that has just been made.
  [[nodiscard]] std::optional<QString> Line() const {
    const auto line = ReadFirstLine(Path());
    return line && line->isEmpty() && !GetParam().Exists ? std::nullopt : line;
  }
};

TEST_P(EverySystemCall, MayBeTheLastAndTheFileIsWhole) {
  int number = 1;
  for (;; ++number) {
    PutBack();
    const auto outcome = RunMeddled({.Number = number}, [&] { return Save(Path()); });
    if (!outcome.Reached) break;
    const auto line = Line();
    EXPECT_TRUE(line == Before() || line == kNew) << number << ": " << qPrintable(line.value_or(u"nothing"_s));
  }
  EXPECT_EQ(Line(), kNew);
  EXPECT_GT(number, 10) << "there are that many system calls";
}

#ifndef __SANITIZE_ADDRESS__  // the sanitizers have system calls of their own, which are not to fail
TEST_P(EverySystemCall, MayFailAndIsToldOrDoneInAnotherWay) {
  for (const int error : {EIO, ENOSPC, EACCES, EDQUOT}) {
    for (int number = 1;; ++number) {
      PutBack();
      const auto outcome = RunMeddled({.Number = number, .Error = error}, [&] { return Save(Path()); });
      if (!outcome.Reached) break;
      const auto line = Line();
      if (outcome.Result == kTold) {
        EXPECT_TRUE(line == Before()) << qPrintable(line.value_or(u"nothing"_s)) << number << ", error " << error;
      } else if (!outcome.Finding) {
        EXPECT_TRUE(line == kNew) << qPrintable(line.value_or(u"nothing"_s)) << number << ", error " << error;
      } else {
        EXPECT_TRUE(line == Before() || line == kNew) << number << ", error " << error;
      }
    }
  }
}
#endif

const Way kWays[] = {
    {"FileThatIsThere", u"a.fen"_s, true},
    {"NewFile", u"a.fen"_s, false},
    // So long a name leaves no room for another beside it, so that the file is written in its place.
    {"InPlace", QString(250, u'b') + u".fen", true},
};
INSTANTIATE_TEST_SUITE_P(Ways, EverySystemCall, testing::ValuesIn(kWays),
                         [](const auto& way) { return std::string(way.param.Name); });

// ---- A file system that fills or goes away ----

// The exit code of a process of its own that does `work`.
int InAnotherProcess(const std::function<int()>& work) {
  const pid_t child = fork();
  if (child == 0) _exit(work());
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// The same for expectations, which tell there what fails.
void ExpectInAnotherProcess(const std::function<void()>& work) {
  EXPECT_EQ(InAnotherProcess([&] {
              work();
              return testing::Test::HasFailure() ? 1 : 0;
            }),
            0);
}

// Lays a file system of one page over `folder`, for this process alone. False where this user may mount nothing.
bool MountSmallDisk(const QString& folder) {
  return unshare(geteuid() == 0 ? CLONE_NEWNS : CLONE_NEWUSER | CLONE_NEWNS) == 0 &&
         mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
         mount("tmpfs", QFile::encodeName(folder).constData(), "tmpfs", 0, "size=4k") == 0;
}

class PositionFileOnASmallDisk : public PositionFile {
 protected:
  void SetUp() override {
    if (InAnotherProcess([&] { return MountSmallDisk(InFolder({})) ? 0 : 1; }) != 0) {
      GTEST_SKIP() << "this user may mount nothing here";
    }
  }
};

// Takes what room there is.
void Fill(const QString& path) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
  while (file.write(QByteArray(1024, 'x')) > 0) {
  }
}

TEST_F(PositionFileOnASmallDisk, StaysAsItWasOnceThatIsFull) {
  const QString file = InFolder(u"a.fen"_s);
  ExpectInAnotherProcess([&] {
    ASSERT_TRUE(MountSmallDisk(InFolder({})));
    EXPECT_EQ(WritePositionFile(file, kOld), std::nullopt);
    Fill(InFolder(u"rest"_s));
    EXPECT_EQ(Save(file), kTold);
    EXPECT_EQ(ReadFirstLine(file), kOld);
    EXPECT_EQ(Save(InFolder(u"new.fen"_s)), kTold);
    EXPECT_EQ(QDir(InFolder({})).entryList(QDir::Files), QStringList({u"a.fen"_s, u"rest"_s})) << "nothing is left";
  });
}

TEST_F(PositionFileOnASmallDisk, IsWrittenAnewWhereThatHasGone) {
  const QString file = InFolder(u"a.fen"_s);
  ExpectInAnotherProcess([&] {
    ASSERT_TRUE(MountSmallDisk(InFolder({})));
    EXPECT_EQ(WritePositionFile(file, kOld), std::nullopt);
    EXPECT_EQ(umount2(QFile::encodeName(InFolder({})).constData(), MNT_DETACH), 0);
    EXPECT_EQ(ReadFirstLine(file), std::nullopt);
    EXPECT_EQ(Save(file), kSilent);
    EXPECT_EQ(ReadFirstLine(file), kNew);
  });
}

// ---- What is no file, or not to be written ----

TEST_F(PositionFile, IsWrittenThroughALinkAlsoOneThatLeadsNowhereYet) {
  const QString link = InFolder(u"link.fen"_s);
  ASSERT_TRUE(QFile::link(InFolder(u"target.fen"_s), link));
  for (const QString& line : {kOld, kNew}) {
    EXPECT_EQ(WritePositionFile(link, line), std::nullopt);
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(ReadFirstLine(InFolder(u"target.fen"_s)), line);
  }
}

TEST_F(PositionFile, IsNotWrittenThroughALinkIntoAFolderThatIsMissing) {
  const QString link = InFolder(u"link.fen"_s);
  ASSERT_TRUE(QFile::link(u"/nowhere/at all.fen"_s, link));
  EXPECT_EQ(Save(link), kSilent);
  EXPECT_TRUE(QFileInfo(link).isSymLink());
  EXPECT_EQ(ReadFirstLine(link), std::nullopt);
}

TEST_F(PositionFile, TakesThePlaceOfNoFolderAndNoDevice) {
  const QString folder = InFolder(u"folder.fen"_s);
  ASSERT_TRUE(QDir().mkdir(folder));
  EXPECT_EQ(Save(folder), kSilent);
  EXPECT_TRUE(QFileInfo(folder).isDir());
  const QString device = InFolder(u"device.fen"_s);
  ASSERT_TRUE(QFile::link(u"/dev/full"_s, device));
  EXPECT_EQ(Save(device), kSilent);
  EXPECT_TRUE(QFileInfo(device).isSymLink());
}

TEST_F(PositionFile, OfAGigabyteIsReadAndReplacedAtOnce) {
  const QString file = InFolder(u"a.fen"_s);
  ASSERT_EQ(WritePositionFile(file, kOld), std::nullopt);
  ASSERT_TRUE(QFile::resize(file, 1LL << 30));
  EXPECT_EQ(ReadFirstLine(file), kOld);
  EXPECT_EQ(Save(file), kSilent);
  EXPECT_EQ(ContentOf(file), kNew.toLatin1() + "\r\n");
}

TEST_F(PositionFile, WhoseRightsAreWithdrawnStaysAsItWas) {
  const QString file = InFolder(u"a.fen"_s);
  const QByteArray folder = QFile::encodeName(InFolder({}));
  ASSERT_EQ(chmod(folder.constData(), 0777), 0);
  const auto set_rights = [&](mode_t rights) { EXPECT_EQ(chmod(QFile::encodeName(file).constData(), rights), 0); };
  ExpectInAnotherProcess([&] {
    constexpr uid_t kNobody = 65534;
    EXPECT_EQ(geteuid() == 0 ? setuid(kNobody) : 0, 0) << "permissions do not bind the superuser";
    EXPECT_EQ(WritePositionFile(file, kOld), std::nullopt);
    for (const mode_t rights : {0444U, 0000U}) {
      set_rights(rights);
      EXPECT_EQ(Save(file), kSilent) << "a file that cannot be opened is passed over";
    }
    EXPECT_EQ(ReadFirstLine(file), std::nullopt);
    set_rights(0644);
    EXPECT_EQ(ReadFirstLine(file), kOld);
    EXPECT_EQ(Save(file), kSilent);
    EXPECT_EQ(ReadFirstLine(file), kNew);
  });
}

}  // namespace
}  // namespace brontavia::test
