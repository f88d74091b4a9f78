#include "net/event_guard.h"

#include <QEventLoop>
#include <QTimer>

namespace brontavia {

void EventGuard::Run(const std::function<void()>& handler) {
  if (Ended()) return;
  if (handlers_on_stack_ == 0) ++outermost_event_;
  ++handlers_on_stack_;
  handler();
  --handlers_on_stack_;
  if (Ended()) FinishWhenIdle();
}

void EventGuard::End(AfterWindow after) {
  if (Ended()) return;
  after_ = after;
  emit Ending();
  Wake();
  FinishWhenIdle();
}

bool EventGuard::WaitUntil(const std::function<bool()>& done, std::optional<std::chrono::milliseconds> limit) {
  QEventLoop loop;
  connect(this, &EventGuard::Woken, &loop, &QEventLoop::quit);
  QTimer timer;
  timer.setSingleShot(true);
  timer.setTimerType(Qt::PreciseTimer);
  bool expired = false;
  connect(&timer, &QTimer::timeout, &loop, [&] {
    expired = true;
    loop.quit();
  });
  if (limit) timer.start(*limit);
  while (!done() && !Ended() && !expired) loop.exec();
  return done();
}

void EventGuard::FinishWhenIdle() {
  if (handlers_on_stack_ == 0) emit Finished(*after_);
}

}  // namespace brontavia
