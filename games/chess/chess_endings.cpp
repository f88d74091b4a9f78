#include "games/chess/chess_endings.h"

#include "games/chess/attack.h"
#include "net/message_tokens.h"
#include "text/rounding.h"

namespace brontavia {

using namespace Qt::StringLiterals;

namespace {

const QString kLost = u"Ha perdido la partida. Pulse sobre el tablero para continuar."_s;
const QString kWon = u"Ha ganado la partida, pulse en el tablero para continuar."_s;
constexpr double kHalfPoint = 0.5;

}  // namespace

void ChessEndings::Reset() {
  session_.Winner.reset();
  session_.GameOver = false;
}

bool ChessEndings::RefuseOutOfTurn() {
  if (session_.TurnSettled && session_.CurrentTurn == host_.OwnPlayer()) return false;
  host_.Tell(u"No es su turno de mover"_s);
  return true;
}

// Called before the boxes that tell the end, so that nothing which arrives while they are open finds the game going on.
void ChessEndings::End(std::optional<Player> winner) {
  session_.GameOver = true;
  session_.Winner = winner;
  if (winner) {
    host_.AddPoint(*winner);
    return;
  }
  for (const Player player : kBothPlayers) {
    session_.Scores[player] = RoundHalfEven<std::int16_t>(session_.Scores[player] + kHalfPoint);
  }
}

// ---- Mate ----

void ChessEndings::DeclareMate() {
  if (RefuseOutOfTurn()) return;
  if (!IsKingAttacked(game_.Position(), game_.Position().SideToMove)) {
    host_.Tell(u"Su rey no está en jaque, por lo que no puede ser jaque mate. "_s);
    return;
  }
  if (!host_.Send(message::kMateDeclared.Token.toString())) return;
  End(OtherPlayer());
  host_.Tell(kLost);
}

void ChessEndings::MateDeclared() {
  End(host_.OwnPlayer());
  host_.Tell(OtherName() + u" se ha declarado en jaque mate.");
  host_.Tell(kWon);
}

// ---- Resignation ----

void ChessEndings::Resign() {
  if (RefuseOutOfTurn() || session_.GameOver) return;
  if (!host_.Send(message::kResigned.Token.toString())) return;
  End(OtherPlayer());
  host_.Tell(kLost);
}

void ChessEndings::OpponentResigned() {
  End(host_.OwnPlayer());
  screen_.AppendText(
      Box::TBJugadas,
      u" y las "_s + (session_.StartingPlayer == host_.OwnPlayer() ? u"negras"_s : u"blancas"_s) + u" abandonan.  ");
  host_.Tell(OtherName() + u" abandona la partida.");
  host_.Tell(kWon);
}

// ---- Draws ----

void ChessEndings::OfferDraw() {
  if (RefuseOutOfTurn()) return;
  if (!host_.Send(message::kDrawOffered.Token.toString())) return;
  screen_.AddMessage(
      u"Ha solicitado al otro jugador que la partida termine en tablas. Por favor, espere a que él responda antes de "
      u"realizar cualquier otra acción."_s);
}

void ChessEndings::DrawOffered() {
  if (host_.Confirm(u"El otro jugador le propone terminar la partida en tablas. ¿Acepta su propuesta?"_s,
                    u"Brontavia - ajedrez"_s)) {
    if (!host_.Send(message::kDrawAccepted.Token.toString())) return;
    DrawAgreed(u"La partida termina en tablas, pulse en el tablero para continuar."_s);
  } else if (host_.Send(message::kDrawRefused.Token.toString())) {
    screen_.AddMessage(u"Le toca mover al otro jugador."_s);
  }
}

void ChessEndings::DrawAccepted() {
  DrawAgreed(
      u"El otro jugador ha aceptado su propuesta. La partida termina en tablas, pulse en el tablero para continuar."_s);
}

void ChessEndings::DrawRefused() {
  host_.Tell(u"El otro jugador no ha aceptado su propuesta. Realice su siguiente movimiento."_s);
}

void ChessEndings::DrawAgreed(const QString& text) {
  End(std::nullopt);
  screen_.AppendText(Box::TBJugadas, u" y los jugadores acuerdan tablas."_s);
  host_.Tell(text);
}

}  // namespace brontavia
