#include "seams/second_timer.h"

#include <utility>

namespace brontavia {

using std::chrono::milliseconds;
using std::chrono::seconds;

milliseconds MonotonicTime() {
  return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now().time_since_epoch());
}

SecondTimer::SecondTimer(Now now) : now_(std::move(now)) {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  connect(&timer_, &QTimer::timeout, this, [this] {
    WaitForNext();
    CatchUp();
  });
}

void SecondTimer::Start() {
  told_ = now_();
  WaitForNext();
}

void SecondTimer::Stop() { timer_.stop(); }

void SecondTimer::CatchUp() {
  if (!IsRunning()) return;
  const auto passed = std::chrono::duration_cast<seconds>(now_() - told_);
  if (passed < seconds(1)) return;
  told_ += passed;
  emit Passed(static_cast<int>(passed.count()));
}

void SecondTimer::WaitForNext() { timer_.start(seconds(1) - (now_() - told_) % seconds(1)); }

}  // namespace brontavia
