#include "fuzz/scripted_events.h"

#include <QCoreApplication>
#include <QTimerEvent>
#include <algorithm>
#include <array>

namespace brontavia::fuzz {

using std::chrono::milliseconds;

ScriptedEvents& ScriptedEvents::Instance() {
  static const auto make = [] {
    auto* events = new ScriptedEvents;
    QCoreApplication::setEventDispatcher(events);  // the application object takes it
    return events;
  };
  static ScriptedEvents& events = *make();
  static int argc = 1;
  static std::array name{'f', 'u', 'z', 'z', '\0'};
  static std::array<char*, 2> argv{name.data(), nullptr};
  static const QCoreApplication application(argc, argv.data());
  return events;
}

bool ScriptedEvents::processEvents(QEventLoop::ProcessEventsFlags /*flags*/) {
  interrupted_ = false;
  QCoreApplication::sendPostedEvents();
  if (!interrupted_) WhenIdle();
  return true;
}

void ScriptedEvents::Pass(milliseconds time) {
  const milliseconds end = now_ + time;
  while (true) {
    const auto next = std::ranges::min_element(timers_, {}, &Timer::Due);
    if (next == timers_.end() || next->Due > end) break;
    now_ = std::max(now_, next->Due);
    next->Due = now_ + std::max(next->Interval, milliseconds(1));
    QTimerEvent rings(next->Id);
    QCoreApplication::sendEvent(next->Object, &rings);
  }
  now_ = std::max(now_, end);
}

void ScriptedEvents::registerTimer(int id, qint64 interval, Qt::TimerType type, QObject* object) {
  const milliseconds pause(interval);
  timers_.push_back({.Id = id, .Interval = pause, .Due = now_ + pause, .Object = object, .Type = type});
}

bool ScriptedEvents::unregisterTimer(int id) {
  return std::erase_if(timers_, [id](const Timer& timer) { return timer.Id == id; }) > 0;
}

bool ScriptedEvents::unregisterTimers(QObject* object) {
  return std::erase_if(timers_, [object](const Timer& timer) { return timer.Object == object; }) > 0;
}

QList<QAbstractEventDispatcher::TimerInfo> ScriptedEvents::registeredTimers(QObject* object) const {
  QList<TimerInfo> registered;
  for (const Timer& timer : timers_) {
    if (timer.Object == object) registered << TimerInfo(timer.Id, static_cast<int>(timer.Interval.count()), timer.Type);
  }
  return registered;
}

int ScriptedEvents::remainingTime(int id) {
  const auto timer = std::ranges::find(timers_, id, &Timer::Id);
  return timer == timers_.end() ? -1 : static_cast<int>(std::max(timer->Due - now_, milliseconds(0)).count());
}

}  // namespace brontavia::fuzz
