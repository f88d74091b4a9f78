// Stands between a window's events and their handlers, so that a window never dies under a handler, and no handler goes
// on in a window that has ended.
//
// Boxes and waits run nested event loops, so a handler may start while others of the same window are still on the
// stack. Every event enters through Run. Ending the window marks it: its boxes close, its waits end, and each call that
// has let other events be handled leaves its handler by throwing WindowEnded, which Run alone catches. So the handlers
// unwind one by one, and when the last one has, Finished tells the owner that the window may be destroyed. Between the
// throw and Run there are frames of this program alone: what Qt calls enters through a Run of its own.
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

// Thrown by what nests once its window has ended. No std::exception: a handler that catches those does not stop it.
struct WindowEnded {};

// One line to standard error about a handler that was stopped. `where` names the window or the message.
void ReportInternalError(const QString& where, const std::exception& error);

class EventGuard : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  // Runs `handler`, unless the window has ended. What it throws stops it alone: a std::exception makes one line on
  // standard error.
  void Run(const std::function<void()>& handler);

  // Marks the window as ended. Only the first call counts.
  void End(AfterWindow after);
  [[nodiscard]] bool Ended() const { return after_.has_value(); }
  // Throws WindowEnded when the window has ended.
  void LeaveIfEnded() const;

  // Sleeps in the event loop until `done` holds or `limit` has passed; returns whether `done` holds. `done` is looked
  // at before the first sleep and after each Wake. Throws WindowEnded when the window has ended by then.
  bool WaitUntil(const std::function<bool()>& done, std::optional<std::chrono::milliseconds> limit = std::nullopt);

  // Something that a wait may be waiting for has changed.
  void Wake() { emit Woken(); }

  // The number of the event whose handler is running, the innermost when they nest; each has one of its own. 0 while
  // none is running.
  [[nodiscard]] int CurrentEvent() const { return current_event_; }

 signals:
  // The window is ending: its boxes are to close. Emitted once, from inside End.
  void Ending();
  // The last handler has returned; nothing of the window is on the stack any more. Emitted once, from inside Run or
  // End.
  void Finished(brontavia::AfterWindow after);
  // A wait is to look again at what it waits for.
  void Woken();

 private:
  void FinishWhenIdle();

  int handlers_on_stack_ = 0;
  int events_ = 0;  // that have had a handler so far
  int current_event_ = 0;
  std::optional<AfterWindow> after_;
};

}  // namespace brontavia
