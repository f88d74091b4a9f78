// The event loop of a script. Where a program sleeps until something happens, the script says what happens; time passes
// when the script says so. So a wait costs nothing, and every run of a script is the same.
#pragma once

#include <QAbstractEventDispatcher>
#include <chrono>
#include <functional>
#include <vector>

namespace brontavia::fuzz {

class ScriptedEvents : public QAbstractEventDispatcher {
 public:
  // The one of this process, with an application object; made at the first call.
  static ScriptedEvents& Instance();

  // What happens next while an event loop sleeps.
  std::function<void()> WhenIdle;

  [[nodiscard]] std::chrono::milliseconds Now() const { return now_; }
  // Timers that are due by then ring, each in its turn.
  void Pass(std::chrono::milliseconds time);

  bool processEvents(QEventLoop::ProcessEventsFlags flags) override;
  void registerSocketNotifier(QSocketNotifier* /*notifier*/) override {}
  void unregisterSocketNotifier(QSocketNotifier* /*notifier*/) override {}
  void registerTimer(int id, qint64 interval, Qt::TimerType type, QObject* object) override;
  bool unregisterTimer(int id) override;
  bool unregisterTimers(QObject* object) override;
  [[nodiscard]] QList<TimerInfo> registeredTimers(QObject* object) const override;
  int remainingTime(int id) override;
  void wakeUp() override {}
  void interrupt() override { interrupted_ = true; }

 private:
  struct Timer {
    int Id;
    std::chrono::milliseconds Interval;
    std::chrono::milliseconds Due;
    QObject* Object;
    Qt::TimerType Type;
  };

  std::chrono::milliseconds now_{};
  std::vector<Timer> timers_;
  bool interrupted_ = false;
};

}  // namespace brontavia::fuzz
