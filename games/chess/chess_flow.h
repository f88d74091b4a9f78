// A session of chess: turns the outcomes of ChessGame into texts, messages and what FG1 shows.
#pragma once

#include <optional>

#include "games/chess/chess_clock.h"
#include "games/chess/chess_command.h"
#include "games/chess/chess_game.h"
#include "net/game_flow.h"
#include "seams/board_model.h"
#include "seams/second_timer.h"

namespace brontavia {

class ChessFlow : public GameFlow {
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

  [[nodiscard]] bool IsAvailable(const ChessMenuEntry& entry) const { return !entry.FreeModeOnly || free_mode_; }
  // Of a checkable entry.
  [[nodiscard]] bool IsChecked(ChessCommand command) const;

  [[nodiscard]] BoardModel& FG1() { return fg1_; }
  [[nodiscard]] const BoardModel& FG1() const { return fg1_; }
  [[nodiscard]] const ChessGame& Game() const { return game_; }
  [[nodiscard]] const ChessClock& Clocks() const { return clocks_; }
  [[nodiscard]] SecondTimer& Timer1() { return timer1_; }
  [[nodiscard]] bool FreeMode() const { return free_mode_; }
  [[nodiscard]] bool LearningMode() const { return learning_mode_; }
  [[nodiscard]] bool BoardFlipped() const { return board_flipped_; }
  // The player of White.
  [[nodiscard]] Player WhitePlayer() const { return session_.StartingPlayer; }
  // The winner of the last game; nothing before its end and after a draw.
  [[nodiscard]] std::optional<Player> Winner() const { return winner_; }
  // Where a square shows on FG1.
  [[nodiscard]] CellIndex IndexOf(Coordinate square) const;

 signals:
  // IsAvailable or IsChecked of some entry has changed.
  void CommandsChanged();

 protected:
  void LoadGame() override;
  void ResetForSession() override;
  void ResetForNewGame() override;
  void DescribeSide(Player player, ScoreboardSide& side) const override;
  [[nodiscard]] KeyHints Keys() const override;

 private:
  struct SavedPosition {
    QString Line;
    ChessPosition Position;
  };

  void ResetBoard();

  // ---- Moving ----
  void ClickSquare(Coordinate square);
  // `before`: the game without the click that has made the move.
  void MoveStands(ChessMove move, const ChessGame& before);
  // The kind that replaces a pawn; nothing when the position has been replaced meanwhile.
  std::optional<int> AskForPromotion();
  void ReplayMove(const QString& payload);
  [[nodiscard]] bool OwnTurn() const { return session_.TurnSettled && session_.CurrentTurn == OwnPlayer(); }

  // ---- The end of a game ----
  void EndGame(std::optional<Player> winner);
  void DeclareMate();
  void MateDeclared();
  void Resign();
  void OpponentResigned();
  void OfferDraw();
  void DrawOffered();
  void DrawAgreed(const QString& text);
  // Tells the player that it is not his turn, when it is not.
  bool RefuseOutOfTurn();

  // ---- Position files and going on with them ----
  void Save();
  void SaveAs();
  void WritePosition(const QString& path);
  void OpenGame();
  void ResumeAsked(const QString& description);
  void ResumeAccepted();
  void ResumeRefused();
  void ChooseColours();
  void TurnsReceived(const QString& payload);
  // Nothing when the file cannot be read, and when it holds no position, which the user is told.
  std::optional<SavedPosition> ReadSaved(const QString& path);
  std::optional<ChessPosition> ReadLine(const QString& line);
  void LoadPosition(const ChessPosition& position);
  [[nodiscard]] QString FileToPropose() const;

  // ---- Clocks ----
  void ToggleClocks();
  void SetClocks();
  void ShowClocks();

  // ---- Modes and editing ----
  void ToggleFreeMode();
  void ToggleLearningMode();
  void TurnBoard();
  void EmptyBoard();
  void SetData();
  void DeletePiece();
  void InsertPiece();
  void PutOnClickedSquare(int piece);
  void PositionEdited();
  void DropSelection();

  // ---- What the window shows ----
  void ShowHeaders();
  void DrawBoard();
  void ShowPositionBox();
  [[nodiscard]] Coordinate SquareOf(CellIndex cell) const;
  [[nodiscard]] QString DescribeCell(CellIndex cell) const;
  [[nodiscard]] QString OtherName() const { return session_.PlayerNames.Trimmed(OtherPlayer()); }

  ChessGame game_;
  BoardModel fg1_;
  ChessClock clocks_;
  SecondTimer timer1_;
  std::optional<Coordinate> clicked_square_;
  std::optional<ChessMove> last_move_;
  std::optional<Player> winner_;
  bool replaying_ = false;  // a received move is being played
  bool free_mode_ = false;
  bool learning_mode_ = false;
  bool board_flipped_ = false;
  QString file_name_;        // the last file chosen in a dialog
  QString saved_game_path_;  // of the position that this side has offered to go on with
};

}  // namespace brontavia
