// Stands between a window's events and their handlers, so that a window never dies under a handler.
//
// Boxes and waits run nested event loops, so a handler may start while others of the same window are still on the
// stack. Every event enters through Run. Ending the window only marks it: its boxes close, its waits end, its handlers
// return one by one, and when the last one has, Finished tells the owner that the window may be destroyed.
#pragma once

#include <QObject>
#include <QString>
#include <chrono>
#include <exception>
#include <functional>
#include <optional>

namespace brontavia {

// What follows when a game window has gone.
enum class AfterWindow {
  Selection,         // Form2 shows again
  ProcessEnds,       // the program ends, as the user wished
  ProcessEndsFailed  // the program ends with exit code 1
};

// One line to standard error about a handler that was stopped. `where` names the window or the message.
void ReportInternalError(const QString& where, const std::exception& error);

class EventGuard : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  // Runs `handler`, unless the window has ended. What it throws stops it alone: one line goes to standard error.
  void Run(const std::function<void()>& handler);

  // Marks the window as ended. Only the first call counts.
  void End(AfterWindow after);
  [[nodiscard]] bool Ended() const { return after_.has_value(); }

  // Sleeps in the event loop until `done` holds, the window has ended or `limit` has passed; returns whether `done`
  // holds. `done` is looked at before the first sleep and after each Wake.
  bool WaitUntil(const std::function<bool()>& done, std::optional<std::chrono::milliseconds> limit = std::nullopt);

  // Something that a wait may be waiting for has changed.
  void Wake() { emit Woken(); }

  // Counts the events that came while no handler was running; what one of them sets off shares its number.
  [[nodiscard]] int OutermostEvent() const { return outermost_event_; }

 signals:
  void Ending();
  void Finished(brontavia::AfterWindow after);
  void Woken();

 private:
  void FinishWhenIdle();

  int handlers_on_stack_ = 0;
  int outermost_event_ = 0;
  std::optional<AfterWindow> after_;
};

}  // namespace brontavia
