#include "seams/second_timer.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QSignalSpy>

namespace brontavia::test {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

class Seconds : public testing::Test {
 protected:
  Seconds() {
    QObject::connect(&Timer, &SecondTimer::Passed, &Timer, [this](int passed) { Told.push_back(passed); });
  }

  void Pass(milliseconds time) {
    Now += time;
    Timer.CatchUp();
  }

  milliseconds Now{12'345};
  SecondTimer Timer{[this] { return Now; }};
  std::vector<int> Told;
};

TEST_F(Seconds, AreToldOnceEach) {
  Timer.Start();
  Pass(milliseconds(999));
  EXPECT_TRUE(Told.empty());
  Pass(milliseconds(1));
  Pass(milliseconds(1));
  EXPECT_EQ(Told, std::vector<int>{1});
}

TEST_F(Seconds, AddUpWhileNobodyLooks) {
  Timer.Start();
  Pass(seconds(3600) + milliseconds(700));
  Pass(milliseconds(300));
  EXPECT_EQ(Told, (std::vector<int>{3600, 1})) << "the rest of a second is not lost";
}

TEST_F(Seconds, BeginAnewWithEachStart) {
  EXPECT_FALSE(Timer.IsRunning());
  Pass(seconds(5));
  Timer.Start();
  Pass(milliseconds(900));
  Timer.Stop();
  EXPECT_FALSE(Timer.IsRunning());
  Pass(seconds(5));
  Timer.Start();
  Pass(milliseconds(900));
  EXPECT_TRUE(Told.empty());
}

TEST(SecondsOfTheRealClock, AreToldByTheEventLoop) {
  SecondTimer timer;
  QSignalSpy passed(&timer, &SecondTimer::Passed);
  const auto start = MonotonicTime();
  timer.Start();
  ASSERT_TRUE(passed.wait(5000));
  EXPECT_GE(MonotonicTime() - start, seconds(1));
  EXPECT_EQ(passed[0][0].toInt(), 1);
  ASSERT_TRUE(passed.wait(5000)) << "it goes on";
}

}  // namespace
}  // namespace brontavia::test
