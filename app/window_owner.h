// Owns the one window that is open: the start window, then the game selection, then a game, then the selection again.
// One window is gone before the next shows, and the process ends by decision alone, not with the last window.
#pragma once

#include <QObject>
#include <QPointer>
#include <QTranslator>
#include <QWidget>

#include "net/event_guard.h"
#include "net/process_values.h"

namespace brontavia {

class GameWindow;

class WindowOwner : public QObject {
  Q_OBJECT
  Q_DISABLE_COPY_MOVE(WindowOwner)

 public:
  // `directory` holds "Brontavia.ini" and, where it is installed, the manual.
  explicit WindowOwner(const QString& directory);
  ~WindowOwner() override;

  void ShowStart();

  [[nodiscard]] const ProcessValues& Values() const { return values_; }

 private:
  void ShowSelection();
  // Standard buttons speak Spanish like everything else, whatever the system's language. Loaded with the first window
  // that can open a box: the start window shows sooner.
  void TranslateStandardButtons();
  void ChooseGame(int index, const QString& name);
  void ShowGame(GameWindow* game);
  void WindowFinished(AfterWindow after);
  // Takes the place of the window that is open, which goes first.
  void Open(QWidget* window);
  void CloseWindow();

  ProcessValues values_;
  // Its first page, or empty.
  QString manual_;
  QTranslator standard_buttons_;
  QPointer<QWidget> window_;
};

}  // namespace brontavia
