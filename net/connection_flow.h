// The life of a game window's connection: listening or connecting, the request and its answer, reads and sends, and
// the closing of the window. What is said over the connection is GameFlow's.
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <chrono>
#include <functional>

#include "net/box_pacing.h"
#include "net/event_guard.h"
#include "net/player.h"
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
  // How long the window stays free after a few boxes in a row that the peer set off; 0: not at all.
  std::chrono::milliseconds FreeBetweenBoxes{1000};
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
  // On which the server listens and to which the client connects.
  [[nodiscard]] std::int32_t Port() const { return seams_.Values.ConnectionPort; }
  [[nodiscard]] Player OwnPlayer() const { return own_player_; }
  [[nodiscard]] Player OtherPlayer() const { return OpponentOf(own_player_); }
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

  // ---- Calls that may nest: other events are handled meanwhile. They throw WindowEnded, and open nothing, in a window
  // that has ended; so do the sends below, whose failure opens a box. ----

  Button ShowBox(const QString& text, const QString& title, Buttons buttons = Buttons::Ok);
  // The reason of an open box with `text` has ended: it closes itself, so that what is read last is true.
  void Dismiss(const QString& text) { seams_.Dialogs.Dismiss(text); }
  QString Ask(const QString& prompt, const QString& title, const QString& proposal = {});
  // The path of the file; empty when cancelled.
  QString AskFileToOpen(const FileQuestion& question);
  QString AskFileToSave(const FileQuestion& question);
  // The index of the chosen item; nothing when the menu was dismissed.
  std::optional<int> PopUp(const QString& menu, const QString& title, const QList<MenuItem>& items);

  // What stands beside texts and boards is to show how things are now: called before anything nests, and after each
  // handler.
  virtual void ShowState() {}

  // Runs the handler of an event that is neither the user's nor the connection's.
  void RunHandler(const std::function<void()>& handler);

  // Runs the handler of something that the user did, unless a box or a wait of this window is open: what is under way
  // is finished first. (Boxes are modal, but assistive technology reaches the window behind them.)
  void RunUserAction(const std::function<void()>& handler);

  // What could not be sent has not happened: each returns false then, and has told the user, once for each event that
  // sets off sends.

  bool Send(const QString& text);
  // Sends `text` and lets other events be handled until the peer certainly has it, so that what is sent next is another
  // read there. Returns false when the connection is lost before.
  bool SendAndWait(const QString& text);
  // Sends `text` again and again until the peer certainly has it. Returns false when the connection is lost before.
  bool SendUntilComplete(const QString& text);

  // The window closes its connection and ends; nothing that arrives from now on is handled. Does not return: it throws
  // WindowEnded.
  [[noreturn]] void End(AfterWindow after);
  // What arrives from now on is not handled although the window still shows a box.
  void StopReading() { reading_ = false; }

  brontavia::Screen& Screen() { return seams_.Screen; }

 private:
  // Asks something of the dialogs once it may open, and leaves the handler when the window has ended meanwhile.
  template <typename Question>
  auto Nested(const Question& ask);
  void WaitUntilBoxMayOpen();
  void BoxAnswered();
  void Rested();
  void ConnectTo(const QString& host);
  void TellFailedSend();
  void AnswerRequest(int request);
  void DataArrived();
  void ReadAgain();
  void HandleRead();
  void CheckAcceptance(const QString& text);
  [[nodiscard]] bool ConnectionLost() const { return seams_.Connection.State() != ConnectionState::Connected; }

  const WindowTraits& window_;
  Seams seams_;
  EventGuard guard_;
  Player own_player_ = Player::Server;
  bool send_complete_ = true;
  int failure_told_in_event_ = 0;
  int reads_on_stack_ = 0;
  bool read_waiting_ = false;
  bool reading_ = true;
  int open_boxes_and_waits_ = 0;
  bool close_question_open_ = false;
  BoxPacing pacing_;
  QTimer rest_;                        // runs while the window is free of boxes, until it has been so for long enough
  bool handling_peers_event_ = false;  // by the innermost handler
};

}  // namespace brontavia
