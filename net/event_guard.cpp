#include "net/event_guard.h"

#include <QEventLoop>
#include <QScopedValueRollback>
#include <QTimer>
#include <cstdio>

#include "net/counted.h"

namespace brontavia {
namespace {

constexpr int kEventLoopsClosed = -1;  // what a loop returns at once when the program is quitting

}  // namespace

void ReportInternalError(const QString& where, const std::exception& error) {
  std::fprintf(stderr, "%s: %s\n", qPrintable(where), error.what());
}

void EventGuard::Run(const std::function<void()>& handler) {
  if (Ended()) return;
  {
    const Counted running(handlers_on_stack_);
    const QScopedValueRollback current(current_event_, ++events_);
    try {
      handler();
    } catch (const WindowEnded&) {
      // Unwound: the window goes once the handlers below have unwound too.
    } catch (const std::exception& error) {
      ReportInternalError(objectName(), error);
    }
  }
  if (Ended()) FinishWhenIdle();
}

void EventGuard::End(AfterWindow after) {
  if (Ended()) return;
  after_ = after;
  emit Ending();
  Wake();
  FinishWhenIdle();
}

void EventGuard::LeaveIfEnded() const {
  if (Ended()) throw WindowEnded{};
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
  while (!done() && !Ended() && !expired) {
    if (loop.exec() == kEventLoopsClosed) break;
  }
  LeaveIfEnded();
  return done();
}

void EventGuard::FinishWhenIdle() {
  if (handlers_on_stack_ == 0) emit Finished(*after_);
}

}  // namespace brontavia
