#include "ui/sound_player.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <atomic>
#include <string>
#include <thread>

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

// Far below what a player notices as a wait with the sanitizers' slowness allowed for; most calls take microseconds.
constexpr qint64 kAtOnceMs = 2000;

const QString kWater = QStringLiteral(SOUNDS_DIRECTORY "/Agua.wav");
const QString kHit = QStringLiteral(SOUNDS_DIRECTORY "/Impacto.wav");

bool SoundModuleIsLoaded() {
  QFile maps(u"/proc/self/maps"_s);
  return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("libsound_effects");
}

// A sound server that hangs up on everyone.
class RefusingServer {
 public:
  explicit RefusingServer(const QString& path) : listener_(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    const QByteArray name = QFile::encodeName(path);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    EXPECT_LT(static_cast<std::size_t>(name.size()), sizeof address.sun_path);
    std::copy(name.begin(), name.end(), address.sun_path);
    EXPECT_EQ(bind(listener_, static_cast<const sockaddr*>(static_cast<const void*>(&address)), sizeof address), 0);
    EXPECT_EQ(listen(listener_, 8), 0);
    thread_ = std::thread([this] {
      for (int visitor = 0; (visitor = accept(listener_, nullptr, nullptr)) >= 0; ++visitors_) close(visitor);
    });
  }
  RefusingServer(const RefusingServer&) = delete;
  RefusingServer& operator=(const RefusingServer&) = delete;
  ~RefusingServer() {
    shutdown(listener_, SHUT_RDWR);
    thread_.join();
    close(listener_);
  }

  [[nodiscard]] int Visitors() const { return visitors_; }

 private:
  int listener_;
  std::atomic<int> visitors_ = 0;
  std::thread thread_;
};

// Every test has a runtime directory without a sound server.
class SoundPlayerTest : public testing::Test {
 protected:
  void SetUp() override {
    QCoreApplication::addLibraryPath(QStringLiteral(SOUND_EFFECTS_DIRECTORY));
    ASSERT_TRUE(runtime_directory_.isValid());
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime_directory_.path()));
    qunsetenv("PULSE_SERVER");
    qunsetenv("PULSE_RUNTIME_PATH");
    testing::internal::CaptureStderr();
    clock_.start();
  }

  void TearDown() override {
    EXPECT_LT(clock_.elapsed(), kAtOnceMs);
    QTest::qWait(50);  // what would be said later
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  }

  [[nodiscard]] QString InRuntimeDirectory(const QString& name) const { return runtime_directory_.filePath(name); }

 private:
  QTemporaryDir runtime_directory_;
  QElapsedTimer clock_;
};

TEST_F(SoundPlayerTest, MissingFileIsSilent) {
  SoundPlayer player;
  player.Play(InRuntimeDirectory(u"nada.wav"_s));
  player.Play(QString());
  player.Play(InRuntimeDirectory(QString()));
}

TEST_F(SoundPlayerTest, WithoutSoundServerNothingIsLoaded) {
  const bool loaded_before = SoundModuleIsLoaded();
  SoundPlayer player;
  player.Play(kWater);
  player.Play(kWater);
  player.Play(kHit);
  EXPECT_EQ(SoundModuleIsLoaded(), loaded_before);
}

TEST_F(SoundPlayerTest, TwoPlayersSideBySide) {
  SoundPlayer first;
  SoundPlayer second;
  first.Play(kWater);
  second.Play(kHit);
}

TEST_F(SoundPlayerTest, PlayerMayEndWhileItPlays) {
  for (int i = 0; i < 3; ++i) {
    SoundPlayer player;
    player.Play(kWater);
  }
}

TEST_F(SoundPlayerTest, SocketWithoutServerIsSilent) {
  const QString socket_path = InRuntimeDirectory(u"native"_s);
  { const RefusingServer gone(socket_path); }
  qputenv("PULSE_SERVER", "unix:" + QFile::encodeName(socket_path));
  SoundPlayer().Play(kWater);
}

TEST_F(SoundPlayerTest, ServerOnAnotherMachineIsNotWaitedFor) {
  qputenv("PULSE_SERVER", "tcp:192.0.2.1");
  SoundPlayer().Play(kWater);
}

TEST_F(SoundPlayerTest, AnotherUsersRuntimeDirectoryIsSilent) {
  qputenv("XDG_RUNTIME_DIR", geteuid() == 0 ? "/nonexistent" : "/");
  SoundPlayer().Play(kWater);
}

// Last, because what is loaded stays.
TEST_F(SoundPlayerTest, ServerThatRefusesIsSilent) {
  const RefusingServer server(InRuntimeDirectory(u"native"_s));
  qputenv("PULSE_RUNTIME_PATH", QFile::encodeName(InRuntimeDirectory(QString())));
  SoundPlayer player;
  player.Play(kWater);
  player.Play(kHit);
  EXPECT_TRUE(SoundModuleIsLoaded());
  // More than the two that only tried whether it accepts; the server's thread may count the last one late.
  EXPECT_TRUE(QTest::qWaitFor([&server] { return server.Visitors() > 2; }));
}

}  // namespace
}  // namespace brontavia
