// The window that all games share: the frames that guide the connection, the game frame with its board and text boxes,
// and the way that events take to the flow. A game derives from it and puts its board in.
#pragma once

#include <QWidget>
#include <map>
#include <memory>

#include "net/connection_flow.h"
#include "seams/connection.h"
#include "seams/screen.h"
#include "ui/announcer.h"
#include "ui/sound_player.h"
#include "ui/widget_dialogs.h"

class QGroupBox;
class QMenuBar;

namespace brontavia {

class BoardView;
class ClientFrame;
class GameFrame;
class ServerFrame;
class TextBox;

class GameWindow : public QWidget, protected Screen {
  Q_OBJECT

 public:
  GameWindow(const WindowTraits& window, std::unique_ptr<Connection> connection);
  GameWindow(const GameWindow&) = delete;
  GameWindow& operator=(const GameWindow&) = delete;
  ~GameWindow() override;

  // Once the window shows: starts its connection.
  void Load();

 signals:
  // Nothing of the window is on the stack any more: it may be destroyed.
  void Finished(brontavia::AfterWindow after);

 protected:
  // What the flow of a game stands on.
  Seams MakeSeams(ProcessValues& values);

  // For the constructor of a game, once its flow and board exist. Both are members of the game.
  void Attach(ConnectionFlow& flow, BoardView& board);

  // For the constructor of a game with more than the common controls, below the messages: see GameFrame.
  TextBox* AddLog(Box box, const QString& name, const QString& accessible_name, int lines);
  TextBox* AddTable(Box box, const QString& name, const QString& accessible_name, int lines);
  void AddSmallBoard(BoardView& board);
  // Shows with the game frame.
  QMenuBar* AddMenuBar();

  void closeEvent(QCloseEvent* event) override;

 private:
  void SetCaption(const QString& caption) override;
  void ShowFrame(Frame frame, bool visible) override;
  void SetText(Box box, const QString& text) override;
  void AppendText(Box box, const QString& text) override;
  void AddMessage(const QString& line) override;
  void Announce(const QString& sentence) override;
  void ShowScoreboard(const Scoreboard& scoreboard) override;
  void ShowKeys(const KeyHints& keys) override;
  void ShowBoardCaption(const QString& caption, PlayerSign owner) override;
  void Beep() override;
  void PlaySound(MediaPlayer player, const QString& file) override;

  std::unique_ptr<Connection> connection_;
  WidgetDialogs dialogs_;
  ConnectionFlow* flow_ = nullptr;
  BoardView* board_ = nullptr;
  std::map<Box, TextBox*> boxes_;
  std::map<MediaPlayer, SoundPlayer> sounds_;
  ServerFrame* server_frame_;
  ClientFrame* client_frame_;
  // The game frame until it first shows. A screen reader that finds it in the window before would never look again
  // whether it can be seen.
  std::unique_ptr<GameFrame> waiting_frame_;
  GameFrame* game_frame_;
  QMenuBar* menu_bar_ = nullptr;
  Announcer announcer_;
};

}  // namespace brontavia
