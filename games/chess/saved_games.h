// Position files, and going on with one together: the one player offers it, the other agrees, and both load it.
#pragma once

#include <QString>
#include <optional>

#include "games/chess/chess_host.h"
#include "games/chess/chess_table.h"
#include "net/game_flow.h"
#include "seams/screen.h"

namespace brontavia {

class SavedGames {
 public:
  // A position that is gone on with settles in `session` who plays White and whose turn it is.
  SavedGames(ChessHost& host, Screen& screen, Session& session, const ChessTable& table)
      : host_(host), screen_(screen), session_(session), table_(table) {}

  // ---- Commands ----

  void Save();
  void SaveAs();
  void Open();

  // ---- Messages: from the player who is asked, ... ----

  void Accepted();
  void Refused();

  // ---- ... and from the one who asks ----

  void Asked(const QString& description);
  void PositionReceived(const QString& line);
  // False when `payload` tells no turns; nothing changes then.
  bool TurnsReceived(const QString& payload);

 private:
  struct SavedPosition {
    QString Line;
    ChessPosition Position;
  };

  void Write(const QString& path);
  // Nothing when the file cannot be read, and when it holds no position, which the user is told.
  std::optional<SavedPosition> Read(const QString& path);
  std::optional<ChessPosition> ReadLine(const QString& line);
  void Load(const ChessPosition& position);
  void ChooseColours();
  // The other player has answered.
  void CloseWaitingBox();
  [[nodiscard]] QString FileToPropose() const;
  [[nodiscard]] QString OtherName() const { return session_.PlayerNames.Trimmed(OpponentOf(host_.OwnPlayer())); }

  ChessHost& host_;
  Screen& screen_;
  Session& session_;
  ChessTable table_;
  QString waiting_box_;   // the text of the box that tells to wait for an answer; empty when there is none
  QString file_name_;     // the last file chosen in a dialog
  QString offered_path_;  // of the position that this side has offered to go on with
};

}  // namespace brontavia
