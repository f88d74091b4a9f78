#include "net/event_guard.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTimer>
#include <stdexcept>

namespace brontavia {
namespace {

using namespace std::chrono_literals;

class EventGuardTest : public testing::Test {
 protected:
  EventGuardTest() {
    Guard.setObjectName(QStringLiteral("FormX"));
    QObject::connect(&Guard, &EventGuard::Ending, [this] { Steps << QStringLiteral("ending"); });
    QObject::connect(&Guard, &EventGuard::Finished, [this](AfterWindow after) {
      Steps << QStringLiteral("finished");
      Finished = after;
    });
  }

  void Step(const char* step) { Steps << QString::fromLatin1(step); }

  EventGuard Guard;
  QStringList Steps;
  std::optional<AfterWindow> Finished;
};

TEST_F(EventGuardTest, RunsHandlersInsideHandlers) {
  Guard.Run([this] {
    Step("outer");
    Guard.Run([this] { Step("inner"); });
    Step("outer again");
  });
  EXPECT_EQ(Steps.join(u','), QStringLiteral("outer,inner,outer again"));
}

TEST_F(EventGuardTest, FinishesOnlyWhenTheLastHandlerHasReturned) {
  Guard.Run([this] {
    Guard.Run([this] {
      Guard.End(AfterWindow::Selection);
      Step("inner ends");
    });
    EXPECT_FALSE(Finished);
    Step("outer ends");
  });
  EXPECT_EQ(Steps.join(u','), QStringLiteral("ending,inner ends,outer ends,finished"));
  EXPECT_EQ(Finished, AfterWindow::Selection);
}

TEST_F(EventGuardTest, FinishesAtOnceWhereNoHandlerIsRunning) {
  Guard.End(AfterWindow::ProcessEnds);
  EXPECT_EQ(Finished, AfterWindow::ProcessEnds);
}

TEST_F(EventGuardTest, TheFirstEndCounts) {
  Guard.Run([this] {
    Guard.End(AfterWindow::Selection);
    Guard.End(AfterWindow::ProcessEndsFailed);
  });
  EXPECT_EQ(Finished, AfterWindow::Selection);
  EXPECT_EQ(Steps.count(QStringLiteral("finished")), 1);
}

TEST_F(EventGuardTest, RunsNothingAfterTheEnd) {
  Guard.End(AfterWindow::Selection);
  Guard.Run([this] { Step("too late"); });
  EXPECT_FALSE(Steps.contains(QStringLiteral("too late")));
}

TEST_F(EventGuardTest, AnEndedWindowUnwindsEachHandlerToItsOwnRun) {
  Guard.Run([this] {
    Guard.LeaveIfEnded();
    Guard.Run([this] {
      Guard.End(AfterWindow::Selection);
      Guard.LeaveIfEnded();
      Step("not reached");
    });
    Step("the outer one is asked for itself");
    Guard.LeaveIfEnded();
    Step("not reached");
  });
  EXPECT_EQ(Steps.join(u','), QStringLiteral("ending,the outer one is asked for itself,finished"));
}

TEST_F(EventGuardTest, AnEndIsNothingThatAHandlerCatchesByAccident) {
  Guard.Run([this] {
    Guard.End(AfterWindow::Selection);
    try {
      Guard.LeaveIfEnded();
    } catch (const std::exception&) {
      Step("caught");
    }
    Step("not reached");
  });
  EXPECT_EQ(Steps.join(u','), QStringLiteral("ending,finished"));
}

TEST_F(EventGuardTest, AFaultStopsItsHandlerAloneAndIsToldOnStandardError) {
  testing::internal::CaptureStderr();
  Guard.Run([this] {
    Guard.Run([] { throw std::out_of_range("no such cell"); });
    Step("goes on");
  });
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "FormX: no such cell\n");
  EXPECT_EQ(Steps.join(u','), QStringLiteral("goes on"));
}

TEST_F(EventGuardTest, EveryEventHasANumberOfItsOwn) {
  EXPECT_EQ(Guard.CurrentEvent(), 0);
  Guard.Run([this] {
    const int outer = Guard.CurrentEvent();
    int inner = 0;
    Guard.Run([&] { inner = Guard.CurrentEvent(); });
    EXPECT_NE(inner, outer);
    EXPECT_NE(inner, 0);
    EXPECT_EQ(Guard.CurrentEvent(), outer);
  });
  EXPECT_EQ(Guard.CurrentEvent(), 0);
}

// ---- Waits ----

TEST_F(EventGuardTest, AWaitEndsWhenItIsWokenAndWhatItWaitsForHolds) {
  int looks = 0;
  QTimer::singleShot(0, &Guard, [this] { Guard.Wake(); });
  QTimer::singleShot(1, &Guard, [this] { Guard.Wake(); });
  Guard.Run([&] { EXPECT_TRUE(Guard.WaitUntil([&] { return ++looks >= 3; })); });
  EXPECT_EQ(looks, 4) << "before the first sleep, after each Wake, and for what it returns";
}

TEST_F(EventGuardTest, AWaitEndsAtItsLimit) {
  Guard.Run([&] { EXPECT_FALSE(Guard.WaitUntil([] { return false; }, 1ms)); });
}

TEST_F(EventGuardTest, AWaitOfAnEndedWindowDoesNotReturn) {
  QTimer::singleShot(0, &Guard, [this] { Guard.End(AfterWindow::Selection); });
  Guard.Run([this] {
    Guard.WaitUntil([] { return false; });
    Step("not reached");
  });
  EXPECT_EQ(Steps.join(u','), QStringLiteral("ending,finished"));
}

TEST_F(EventGuardTest, AWaitDoesNotBeginInAnEndedWindow) {
  Guard.Run([this] {
    Guard.End(AfterWindow::Selection);
    Guard.WaitUntil([] { return true; });
    Step("not reached");
  });
  EXPECT_FALSE(Steps.contains(QStringLiteral("not reached")));
}

}  // namespace
}  // namespace brontavia
