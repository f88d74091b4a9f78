// ChessFlow: mate, resignation and draws.
#include "games/chess/attack.h"
#include "games/chess/chess_flow.h"
#include "text/rounding.h"

namespace brontavia {

using namespace Qt::StringLiterals;

namespace {

const QString kLost = u"Ha perdido la partida. Pulse sobre el tablero para continuar."_s;
const QString kWon = u"Ha ganado la partida, pulse en el tablero para continuar."_s;
constexpr double kHalfPoint = 0.5;

}  // namespace

bool ChessFlow::RefuseOutOfTurn() {
  if (session_.CurrentTurn == OwnPlayer()) return false;
  ShowBox(u"No es su turno de mover"_s, {});
  return true;
}

// Called before the boxes that tell the end, so that nothing which arrives while they are open finds the game going on.
void ChessFlow::EndGame(std::optional<Player> winner) {
  session_.GameOver = true;
  winner_ = winner;
  if (winner) {
    AddPoint(*winner);
    return;
  }
  for (const Player player : kBothPlayers) {
    session_.Scores[player] = RoundHalfEven<std::int16_t>(session_.Scores[player] + kHalfPoint);
  }
}

// ---- Mate ----

void ChessFlow::DeclareMate() {
  if (RefuseOutOfTurn()) return;
  const ChessPosition& position = game_.Position();
  if (!IsKingAttacked(position, position.SideToMove)) {
    ShowBox(u"Su rey no está en jaque, por lo que no puede ser jaque mate. "_s, {});
    return;
  }
  if (!Send(message::kMateDeclared.Token.toString())) return;
  EndGame(OtherPlayer());
  ShowBox(kLost, {});
}

void ChessFlow::MateDeclared() {
  EndGame(OwnPlayer());
  ShowBox(OtherName() + u" se ha declarado en jaque mate.", {});
  ShowBox(kWon, {});
}

// ---- Resignation ----

void ChessFlow::Resign() {
  if (RefuseOutOfTurn() || session_.GameOver) return;
  if (!Send(message::kResigned.Token.toString())) return;
  EndGame(OtherPlayer());
  ShowBox(kLost, {});
}

void ChessFlow::OpponentResigned() {
  EndGame(OwnPlayer());
  Screen().AppendText(Box::TBJugadas,
                      u" y las "_s + (WhitePlayer() == OwnPlayer() ? u"negras"_s : u"blancas"_s) + u" abandonan.  ");
  ShowBox(OtherName() + u" abandona la partida.", {});
  ShowBox(kWon, {});
}

// ---- Draws ----

void ChessFlow::OfferDraw() {
  if (RefuseOutOfTurn()) return;
  if (!Send(message::kDrawOffered.Token.toString())) return;
  AddMessage(
      u"Ha solicitado al otro jugador que la partida termine en tablas. Por favor, espere a que él responda antes de "
      u"realizar cualquier otra acción."_s);
}

void ChessFlow::DrawOffered() {
  const Button answer = ShowBox(u"El otro jugador le propone terminar la partida en tablas. ¿Acepta su propuesta?"_s,
                                u"Brontavia - ajedrez"_s, Buttons::YesNo);
  if (answer == Button::No) {
    if (Send(message::kDrawRefused.Token.toString())) AddMessage(u"Le toca mover al otro jugador."_s);
    return;
  }
  if (Send(message::kDrawAccepted.Token.toString()))
    DrawAgreed(u"La partida termina en tablas, pulse en el tablero para continuar."_s);
}

void ChessFlow::DrawAgreed(const QString& text) {
  EndGame(std::nullopt);
  Screen().AppendText(Box::TBJugadas, u" y los jugadores acuerdan tablas."_s);
  ShowBox(text, {});
}

}  // namespace brontavia
