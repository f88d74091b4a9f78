// The platform's dialogs, seen from a flow. WidgetDialogs shows them; tests answer from a script.
#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <optional>

namespace brontavia {

enum class Buttons { Ok, OkCancel, YesNo };
enum class Button { Ok, Cancel, Yes, No };

// What a file dialog shows. A path uses "/".
struct FileQuestion {
  QString Title;
  QString Filter;  // pairs of a label and a pattern, joined by "|"
  QString Path;    // the folder, or the file that is proposed; empty: the system's choice
};

struct MenuItem {
  QString Caption;
  QString Name = {};    // of the control
  bool Visible = true;  // a hidden item cannot be chosen, but counts
};

class Dialogs : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  // Shows `text`, as plain text, until a button is pressed; meanwhile other events are handled. An empty title shows
  // the program's name, and the title "Error" goes with the sign of an error. Closed without a button it counts as
  // cancelled; a Yes/No box closes by its buttons alone, or by CloseAll, which counts as No.
  virtual Button MessageBox(const QString& text, const QString& title, Buttons buttons) = 0;

  // Asks for one line. Meanwhile other events are handled. Returns what was typed, unchanged; empty when cancelled.
  virtual QString InputBox(const QString& prompt, const QString& title, const QString& proposal) = 0;

  // Ask for a file that exists, or for one to write, which is confirmed when it exists. Meanwhile other events are
  // handled. Return its path; empty when cancelled.
  virtual QString OpenFile(const FileQuestion& question) = 0;
  virtual QString SaveFile(const FileQuestion& question) = 0;

  // Pops up the menu `name`, titled `title`, at the cursor until an item is chosen or the menu is dismissed; meanwhile
  // other events are handled. Returns the index of the item, or nothing.
  virtual std::optional<int> PopUpMenu(const QString& name, const QString& title, const QList<MenuItem>& items) = 0;

  // Closes the message boxes with `text` that are open, as if by their button.
  virtual void Dismiss(const QString& text) = 0;

  // Closes every box and menu that is open, as if it had been cancelled.
  virtual void CloseAll() = 0;

  // Whether a box or menu is on screen. One that has been answered is not, though the call that opened it may return
  // only after those that opened over it.
  [[nodiscard]] virtual bool IsShowing() const = 0;

 signals:
  // A box or menu has left the screen.
  void Answered();
};

}  // namespace brontavia
