// Waiting for a condition, with a limit, and playing the user beside the event loop.
#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>
#include <QTimer>
#include <functional>
#include <type_traits>

namespace brontavia::test {

// Runs `act` on the thread of the windows and returns what it returns. Not for what may open a box: see Post.
template <typename Act>
auto OnGui(const Act& act) {
  using Result = std::invoke_result_t<Act>;
  if (QThread::currentThread() == QCoreApplication::instance()->thread()) return act();
  if constexpr (std::is_void_v<Result>) {
    QMetaObject::invokeMethod(QCoreApplication::instance(), act, Qt::BlockingQueuedConnection);
  } else {
    Result result{};
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [&] { result = act(); }, Qt::BlockingQueuedConnection);
    return result;
  }
}

// Has `act` run on the thread of the windows and does not wait for it.
inline void Post(const std::function<void()>& act) {
  QMetaObject::invokeMethod(QCoreApplication::instance(), act, Qt::QueuedConnection);
}

// Handles events, or lets them be handled, until `condition` holds; returns whether it came to hold within ten
// seconds.
inline bool Eventually(const std::function<bool()>& condition) {
  const QDeadlineTimer deadline(10'000);
  while (!OnGui(condition)) {
    if (deadline.hasExpired()) return false;
    if (QThread::currentThread() == QCoreApplication::instance()->thread()) {
      QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QThread::msleep(1);
  }
  return true;
}

// Handles events for as long as something that must not happen would need.
inline void LetPass(int milliseconds) {
  const QDeadlineTimer deadline(milliseconds);
  while (!deadline.hasExpired()) QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}

// Handles events until all that was put off to the next turn of the event loop has run.
inline void PassATurn() {
  QTimer last;
  last.setSingleShot(true);
  last.start(0);
  while (last.isActive()) QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}

// Runs `script` as the user, on a thread of its own, while the windows' event loop runs; so a script can answer a box
// that keeps the handler which opened it waiting. Boxes that the script leaves open are closed. Returns the exit code
// when the program ended its event loop, otherwise -1.
int AsUser(const std::function<void()>& script);

}  // namespace brontavia::test
