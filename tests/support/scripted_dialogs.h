// Boxes answered from a script, in order. An unexpected box and a script left over fail the test.
#pragma once

#include <QStringList>
#include <deque>
#include <functional>
#include <optional>
#include <utility>

#include "seams/dialogs.h"

namespace brontavia::test {

class ScriptedDialogs : public Dialogs {
 public:
  // What happens while a box is open, before it is answered.
  using Meanwhile = std::function<void()>;

  explicit ScriptedDialogs(QString owner) : owner_(std::move(owner)) {}
  Q_DISABLE_COPY_MOVE(ScriptedDialogs)
  ~ScriptedDialogs() override;

  // ---- The script ----

  void Expect(const QString& title, const QString& text, Meanwhile meanwhile = {});  // one OK button
  void Expect(const QString& title, const QString& text, Button answer, Meanwhile meanwhile = {});
  void ExpectInput(const QString& title, const QString& prompt, const QString& proposal, const QString& answer,
                   Meanwhile meanwhile = {});
  // A pop-up menu with these captions of its visible items, of which `chosen` is taken; "" dismisses it.
  void ExpectMenu(const QString& name, const QStringList& captions, const QString& chosen, Meanwhile meanwhile = {});
  // A file dialog that shows `question`; `chosen` is the path that it returns, "" cancels it.
  void ExpectFile(const FileQuestion& question, const QString& chosen, Meanwhile meanwhile = {});
  // Instead of a script: every further box is answered by this, given its title.
  std::function<Button(const QString& title)> AnswerBox;
  std::function<QString(const QString& title)> AnswerInput;
  std::function<std::optional<int>(const QList<MenuItem>& items)> AnswerMenu;
  std::function<QString(const FileQuestion& question)> AnswerFile;
  // The window is ending.
  std::function<void()> WhenAllClose;

  QStringList Dismissed;  // texts of boxes that the window has closed itself
  QStringList Shown;      // titles and texts of all boxes, in order

  Button MessageBox(const QString& text, const QString& title, Buttons buttons) override;
  QString InputBox(const QString& prompt, const QString& title, const QString& proposal) override;
  QString OpenFile(const FileQuestion& question) override { return ChooseFile(question); }
  QString SaveFile(const FileQuestion& question) override { return ChooseFile(question); }
  std::optional<int> PopUpMenu(const QString& name, const QString& title, const QList<MenuItem>& items) override;
  void Dismiss(const QString& text) override { Dismissed << text; }
  void CloseAll() override;
  [[nodiscard]] bool IsShowing() const override { return open_ > closed_; }

 private:
  enum class Kind { Message, Input, File, Menu };
  struct Expected {
    Kind Is = Kind::Message;
    QString Title;
    QString Text;
    QString Proposal;
    Button Answer = Button::Ok;
    QString Typed;
    Meanwhile While;
  };

  // The next box of the script when it is this one; fails the test and returns nothing otherwise.
  std::optional<Expected> Next(const QString& title, const QString& text, const QString& proposal, Kind kind);
  QString ChooseFile(const FileQuestion& question);
  // Lets the box's meanwhile happen; returns whether the box was still open afterwards.
  bool StayOpen(const Meanwhile& meanwhile);
  // Shows a box for as long as `answer` takes.
  template <typename Answer>
  auto WhileOpen(const Answer& answer);

  QString owner_;
  std::deque<Expected> script_;
  int open_ = 0;
  int closed_ = 0;  // how many of the open boxes have been closed by CloseAll
};

}  // namespace brontavia::test
