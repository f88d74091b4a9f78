// A timer of whole seconds that loses none.
#pragma once

#include <QTimer>
#include <chrono>
#include <functional>

namespace brontavia {

// Time since some fixed moment that no change of the system's clock touches.
std::chrono::milliseconds MonotonicTime();

class SecondTimer : public QObject {
  Q_OBJECT

 public:
  using Now = std::function<std::chrono::milliseconds()>;

  explicit SecondTimer(Now now = MonotonicTime);

  // The first second begins now.
  void Start();
  // The second that has begun is not counted.
  void Stop();
  [[nodiscard]] bool IsRunning() const { return timer_.isActive(); }

  // Tells the seconds that have passed since they were last told: one while the event loop turns, more after it was
  // kept from turning.
  void CatchUp();

 signals:
  void Passed(int seconds);

 private:
  void WaitForNext();

  Now now_;
  QTimer timer_;
  std::chrono::milliseconds told_{};  // the moment until which seconds have been told
};

}  // namespace brontavia
