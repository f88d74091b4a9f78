// A session of chess: clicks, keys and commands of the player, messages of the other, and the moves that they make.
// What else there is to a session has a part of its own.
#pragma once

#include <optional>

#include "games/chess/chess_clocks.h"
#include "games/chess/chess_command.h"
#include "games/chess/chess_display.h"
#include "games/chess/chess_editing.h"
#include "games/chess/chess_endings.h"
#include "games/chess/chess_game.h"
#include "games/chess/chess_host.h"
#include "games/chess/saved_games.h"
#include "net/game_flow.h"

namespace brontavia {

class ChessFlow : public GameFlow, private ChessHost {
  Q_OBJECT

 public:
  ChessFlow(const Seams& seams, const RandomSeed& seed, SecondTimer::Now now = MonotonicTime);

  // ---- Entries ----

  // The user clicked `cell` of FG1, or pressed Enter or the space bar on it.
  void BoardClicked(CellIndex cell);
  // The user pressed another key (Qt::Key) on FG1.
  void BoardKeyPressed(int key);
  // The user chose a menu entry.
  void Run(ChessCommand command);

  [[nodiscard]] bool IsAvailable(const ChessMenuEntry& entry) const { return !entry.FreeModeOnly || FreeMode(); }
  // Of a checkable entry.
  [[nodiscard]] bool IsChecked(ChessCommand command) const;

  [[nodiscard]] BoardModel& FG1() { return display_.FG1(); }
  [[nodiscard]] const BoardModel& FG1() const { return display_.FG1(); }
  [[nodiscard]] const ChessGame& Game() const { return game_; }
  [[nodiscard]] const ChessClock& Clocks() const { return clocks_.Times(); }
  [[nodiscard]] SecondTimer& Timer1() { return clocks_.Timer1(); }
  [[nodiscard]] bool FreeMode() const { return editing_.FreeMode(); }
  [[nodiscard]] bool LearningMode() const { return display_.LearningMode(); }
  [[nodiscard]] bool BoardFlipped() const { return display_.BoardFlipped(); }
  [[nodiscard]] Player OwnPlayer() const override { return GameFlow::OwnPlayer(); }
  // The player of White.
  [[nodiscard]] Player WhitePlayer() const { return session_.StartingPlayer; }
  // The winner of the last game; nothing before its end and after a draw.
  [[nodiscard]] std::optional<Player> Winner() const { return session_.Winner; }
  // Where a square shows on FG1.
  [[nodiscard]] CellIndex IndexOf(Coordinate square) const { return display_.IndexOf(square); }

 signals:
  // IsAvailable or IsChecked of some entry has changed.
  void CommandsChanged();

 protected:
  void LoadGame() override { ResetBoard(); }
  void ResetForSession() override;
  void ResetForNewGame() override;
  void FirstTurnSettled() override;
  void DescribeSide(Player player, ScoreboardSide& side) const override;
  [[nodiscard]] KeyHints Keys() const override;
  void ShowState() override;

 private:
  void AnswerMessages();
  void ResetBoard();

  // ---- Moving ----

  void ClickSquare(Coordinate square);
  // `before`: the game without the click that has made the move.
  void MoveStands(ChessMove move, const ChessGame& before);
  // The kind that replaces a pawn; nothing when the position has been replaced meanwhile.
  std::optional<int> AskForPromotion();
  void ReplayMove(const QString& payload);
  void DropSelection();
  // Makes the cell of `square` current without telling what stands there.
  void MoveCursor(Coordinate square);
  [[nodiscard]] bool OwnTurn() const { return session_.TurnSettled && session_.CurrentTurn == OwnPlayer(); }

  // ---- For the parts ----

  void RunHandler(const std::function<void()>& handler) override { GameFlow::RunHandler(handler); }
  void SetStatus(const QString& text) override { GameFlow::SetStatus(text); }
  void AddPoint(Player player) override { GameFlow::AddPoint(player); }
  void Tell(const QString& text, const QString& title) override { ShowBox(text, title); }
  void Dismiss(const QString& text) override { GameFlow::Dismiss(text); }
  bool Confirm(const QString& text, const QString& title) override;
  QString Ask(const QString& prompt, const QString& title, const QString& proposal) override;
  QString AskFileToOpen(const FileQuestion& question) override { return GameFlow::AskFileToOpen(question); }
  QString AskFileToSave(const FileQuestion& question) override { return GameFlow::AskFileToSave(question); }
  std::optional<int> PopUp(const QString& menu, const QString& title, const QList<MenuItem>& items) override;
  bool Send(const QString& text) override { return GameFlow::Send(text); }
  bool SendAndWait(const QString& text) override { return GameFlow::SendAndWait(text); }
  bool SendUntilComplete(const QString& text) override { return GameFlow::SendUntilComplete(text); }

  ChessGame game_;
  ChessDisplay display_;
  ChessClocks clocks_;
  ChessEndings endings_;
  SavedGames saved_games_;
  ChessEditing editing_;
  bool replaying_ = false;      // a received move is being played
  bool moving_cursor_ = false;  // not the user
};

}  // namespace brontavia
