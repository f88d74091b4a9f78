// The life of a game window's connection: listening or connecting, the request and its answer, reads and sends, and
// the closing of the window. What is said over the connection is GameFlow's.
#pragma once

#include <QObject>
#include <QString>
#include <functional>

#include "net/event_guard.h"
#include "net/process_values.h"
#include "net/window_traits.h"
#include "seams/connection.h"
#include "seams/dialogs.h"
#include "seams/screen.h"

namespace brontavia {

// What a flow stands on. The caller owns all of it and keeps it longer than the flow.
struct Seams {
  brontavia::Connection& Connection;
  brontavia::Dialogs& Dialogs;
  brontavia::Screen& Screen;
  ProcessValues& Values;
};

class ConnectionFlow : public QObject {
  Q_OBJECT

 public:
  ConnectionFlow(const WindowTraits& window, const Seams& seams);

  // ---- Entries: what the window and the user set off ----

  // Once, when the window loads: takes the role and, on the server, listens.
  void Load();
  void CbConectarClicked();
  void CBConLocalClicked();
  // The user wants to close the window.
  void CloseRequested();

  [[nodiscard]] const WindowTraits& Window() const { return window_; }
  [[nodiscard]] int OwnPlayer() const { return own_player_; }
  [[nodiscard]] int OtherPlayer() const { return 1 - own_player_; }
  [[nodiscard]] bool Ended() const { return guard_.Ended(); }

 signals:
  // The last handler has returned; the window may be destroyed.
  void Finished(brontavia::AfterWindow after);

 protected:
  // The window loads, its connection not yet.
  virtual void LoadGame() {}
  // The connection stands, and the client has found its game code in the acceptance.
  virtual void StartSession() = 0;
  virtual void HandleMessage(const QString& text) = 0;

  // After a call that may nest (boxes, questions, waits) a handler returns at once when the window has ended.
  Button ShowBox(const QString& text, const QString& title, Buttons buttons = Buttons::Ok);
  QString Ask(const QString& prompt, const QString& title, const QString& proposal = {});
  // The path of the file; empty when cancelled.
  QString AskFileToOpen(const FileQuestion& question);
  QString AskFileToSave(const FileQuestion& question);
  // The index of the chosen item; nothing when the menu was dismissed.
  std::optional<int> PopUp(const QString& menu, const QString& title, const QList<MenuItem>& items);

  // Runs the handler of something that the user did, unless a box or a wait of this window is open: what is under way
  // is finished first. (Boxes are modal, but assistive technology reaches the window behind them.)
  void RunUserAction(const std::function<void()>& handler);

  // Returns whether the text went out. A failure is told to the user once for each event that sets off sends.
  bool Send(const QString& text);
  // Sends `text` and lets other events be handled until the peer certainly has it, so that what is sent next is another
  // read there. Returns false when the connection is lost or the window has ended before.
  bool SendAndWait(const QString& text);
  // Sends `text` again and again until the peer certainly has it, the connection is lost or the window has ended.
  void SendUntilComplete(const QString& text);

  // The window closes its connection and ends; nothing that arrives from now on is handled.
  void End(AfterWindow after);
  // What arrives from now on is not handled although the window still shows a box.
  void StopReading() { reading_ = false; }

  EventGuard& Guard() { return guard_; }
  brontavia::Screen& Screen() { return seams_.Screen; }

 private:
  void ConnectTo(const QString& host);
  void TellFailedSend();
  void AnswerRequest(int request);
  void DataArrived();
  void HandleRead();
  void CheckAcceptance(const QString& text);
  [[nodiscard]] bool ConnectionLost() const { return seams_.Connection.State() != ConnectionState::Connected; }

  const WindowTraits& window_;
  Seams seams_;
  EventGuard guard_;
  int own_player_ = 0;
  bool send_complete_ = true;
  int failure_told_in_event_ = 0;
  int reads_on_stack_ = 0;
  bool read_waiting_ = false;
  bool reading_ = true;
  int open_boxes_and_waits_ = 0;
  bool close_question_open_ = false;
};

}  // namespace brontavia
