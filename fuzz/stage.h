// What a window's flow stands on while a script is played against it: connection, boxes and screen. Whatever it does
// there after its end breaks the promise that an ended window is silent.
#pragma once

#include <QString>
#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "fuzz/script.h"
#include "net/connection_flow.h"

namespace brontavia::fuzz {

// Whether the window may still be seen and heard of.
class Silence {
 public:
  void Begin() { silent_ = true; }
  void Break() const;

 private:
  bool silent_ = false;
};

class ScriptedConnection : public Connection {
 public:
  explicit ScriptedConnection(const Silence& silence) : silence_(silence) {}

  [[nodiscard]] ConnectionState State() const override { return state_; }
  [[nodiscard]] QList<OwnAddress> OwnAddresses() const override { return {}; }
  std::optional<QString> Listen(std::int32_t port) override;
  bool Accept(int request) override;
  void Reject(int request) override;
  void Connect(const QString& host, std::int32_t port) override;
  void Close() override;
  bool SendData(const QString& text) override;
  void Flush() override {}
  QString GetData() override;

  // ---- Steps of a script; what makes no sense in the present state does nothing ----

  void Receive(const QString& text);
  void Ask();
  void Withdraw();
  void Establish();
  void Break();
  void Notice();
  void HoldAcknowledgements(bool hold) { hold_ = hold; }
  [[nodiscard]] bool HoldsAcknowledgements() const { return hold_; }
  // Tells that everything has arrived, if it has and was not told yet.
  void Acknowledge();

  bool RefusesToListen = false;
  std::vector<QString> Sent;  // taken by who passes it on

 private:
  const Silence& silence_;
  ConnectionState state_ = ConnectionState::Closed;
  QString arrived_;
  bool requested_ = false;  // a request waits for an answer
  bool requester_is_there_ = false;
  bool unacknowledged_ = false;
  bool hold_ = false;
  bool broken_ = false;  // and not noticed yet
};

class ScriptedBoxes : public Dialogs {
 public:
  // `play` plays a step; false at the end of the script.
  ScriptedBoxes(Silence& silence, std::function<bool()> play) : silence_(silence), play_(std::move(play)) {}

  Button MessageBox(const QString& text, const QString& title, Buttons buttons) override;
  QString InputBox(const QString& prompt, const QString& title, const QString& proposal) override;
  QString OpenFile(const FileQuestion& question) override;
  QString SaveFile(const FileQuestion& question) override;
  std::optional<int> PopUpMenu(const QString& name, const QString& title, const QList<MenuItem>& items) override;
  void Dismiss(const QString& text) override;
  // The window is ending.
  void CloseAll() override;
  [[nodiscard]] bool IsShowing() const override { return Topmost() != nullptr; }

  // A step of a script: the topmost box is answered; nothing happens where none is.
  void Answer(const std::string& text);

  enum class Kind { Message, Input, File, Menu };
  struct Open {
    Kind Is = Kind::Message;
    QString Text;
    std::optional<std::string> Answer = {};
  };
  // The box that takes the user's answer; nullptr without one.
  [[nodiscard]] const Open* Topmost() const;

 private:
  // Keeps the box open until it has been answered.
  std::string AnswerTo(Kind kind, const QString& text = {});

  Silence& silence_;
  std::function<bool()> play_;
  std::vector<Open*> open_;  // on the stack, the topmost last
};

class CheckedScreen : public Screen {
 public:
  explicit CheckedScreen(const Silence& silence) : silence_(silence) {}

  void SetCaption(const QString& /*caption*/) override { silence_.Break(); }
  void ShowFrame(Frame /*frame*/, bool /*visible*/) override { silence_.Break(); }
  void SetText(Box /*box*/, const QString& /*text*/) override { silence_.Break(); }
  void AppendText(Box /*box*/, const QString& /*text*/) override { silence_.Break(); }
  void AddMessage(const QString& /*line*/) override { silence_.Break(); }
  void Announce(const QString& /*sentence*/) override { silence_.Break(); }
  void ShowScoreboard(const Scoreboard& /*scoreboard*/) override { silence_.Break(); }
  void ShowKeys(const KeyHints& /*keys*/) override { silence_.Break(); }
  void ShowBoardCaption(const QString& /*caption*/, PlayerSign /*owner*/) override { silence_.Break(); }
  void Beep() override { silence_.Break(); }
  void PlaySound(MediaPlayer /*player*/, const QString& /*file*/) override { silence_.Break(); }

 private:
  const Silence& silence_;
};

class Stage {
 public:
  using Source = std::function<std::optional<Step>()>;
  // `next` gives the steps.
  Stage(Role role, Source next);
  Q_DISABLE_COPY_MOVE(Stage)
  ~Stage();

  brontavia::Seams Seams() { return {.Connection = Connection, .Dialogs = Boxes, .Screen = Screen, .Values = Values}; }
  // Plays the next step; false when there is none.
  bool PlayStep();
  // Until the window has gone.
  void Play();
  // A cell has been written.
  void Written() const { silence_.Break(); }

  // ---- To be set before Play ----

  std::function<void(const Step& step)> Perform;  // what a connection and boxes alone cannot do
  std::function<void()> Check;                    // after each step
  bool Finished = false;                          // the window may be destroyed

 private:
  // False for a step that is the window's.
  bool PerformCommon(const Step& step);
  void Settle();

  Silence silence_;
  Source next_;

 public:
  ScriptedConnection Connection;
  ScriptedBoxes Boxes;
  CheckedScreen Screen;
  ProcessValues Values;
};

// The number that a character of `text` stands for: 0 for "a", 0 too where there is none; below `count`.
int NumberAt(const std::string& text, std::size_t position, int count);

}  // namespace brontavia::fuzz
