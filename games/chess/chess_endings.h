// How a game ends: mate, resignation and draws, asked for by this player or told by the other.
#pragma once

#include <optional>

#include "games/chess/chess_game.h"
#include "games/chess/chess_host.h"
#include "net/game_flow.h"
#include "seams/screen.h"

namespace brontavia {

class ChessEndings {
 public:
  // Looks at the turn and the names in `session`, and notes the end and the score there.
  ChessEndings(ChessHost& host, Screen& screen, Session& session, const ChessGame& game)
      : host_(host), screen_(screen), session_(session), game_(game) {}

  // A new game begins.
  void Reset();

  // ---- Commands. They are refused when it is not this player's turn. ----

  void DeclareMate();
  void Resign();
  void OfferDraw();

  // ---- Messages ----

  void MateDeclared();
  void OpponentResigned();
  void DrawOffered();
  void DrawAccepted();
  void DrawRefused();

 private:
  // Tells the player that it is not his turn, when it is not.
  bool RefuseOutOfTurn();
  void End(std::optional<Player> winner);
  void DrawAgreed(const QString& text);
  [[nodiscard]] Player OtherPlayer() const { return OpponentOf(host_.OwnPlayer()); }
  [[nodiscard]] QString OtherName() const { return session_.PlayerNames.Trimmed(OtherPlayer()); }

  ChessHost& host_;
  Screen& screen_;
  Session& session_;
  const ChessGame& game_;
};

}  // namespace brontavia
