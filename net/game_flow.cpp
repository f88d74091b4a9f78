#include "net/game_flow.h"

#include <algorithm>
#include <exception>
#include <limits>
#include <utility>

#include "net/common_messages.h"
#include "text/qt_text.h"
#include "text/rounding.h"

namespace brontavia {

using namespace Qt::StringLiterals;

GameFlow::GameFlow(const WindowTraits& window, const Seams& seams, const RandomSeed& seed)
    : ConnectionFlow(window, seams), random_(seed) {
  On(message::kName, [this](const QString& payload) { NameReceived(payload); });
  On(message::kTurnChoice, [this](const QString& payload) { TurnChoiceReceived(payload); });
  On(message::kTurnDecided, [this](const QString& payload) { TurnDecided(payload); });
  On(message::kRematchYes, [this](const QString&) { RematchAccepted(); });
  On(message::kRematchNo, [this](const QString&) { RematchRefused(); });
}

// ---- Dispatch ----

void GameFlow::On(const Message& message, Handler handler) { handlers_[&message] = std::move(handler); }

void GameFlow::HandleMessage(const QString& text) {
  if (Window().BeepsForEveryText) Screen().Beep();
  if (!text.contains(u'|')) return;  // which every token has
  for (const Message* message : Window().Messages) {
    if (!text.contains(message->Token)) continue;
    if (!message->Unless.isEmpty() && text.contains(message->Unless)) continue;
    try {
      handlers_.at(message)(From(text, message->PayloadFrom).toString());
    } catch (const std::exception& error) {
      ReportInternalError(Window().Window + u' ' + message->Token, error);
    }
  }
}

void GameFlow::CheckHandlers() const {
  const auto answered = [this](const Message* message) { return handlers_.contains(message); };
  if (handlers_.size() == Window().Messages.size() && std::ranges::all_of(Window().Messages, answered)) return;
  throw std::logic_error("the handlers are not those of the window's messages");
}

// ---- Handshake ----

void GameFlow::StartSession() {
  CheckHandlers();
  Screen().ShowFrame(Frame::FrJuego, true);
  session_.TurnSettled = false;
  ResetForSession();
  AskName();
  AskFirstTurn();
}

void GameFlow::AskName() {
  const QString proposal = OwnPlayer() == Player::Server ? u"Servidor"_s : u"Cliente"_s;
  QString name =
      Ask(u"Por favor, introduzca su  nombre para mostrar al otro jugador: "_s, u"Introducir nombre"_s, proposal);
  if (name.isEmpty()) name = proposal;
  session_.PlayerNames.Set(OwnPlayer(), name);
  Screen().SetCaption(TrimBlanks(name) + Window().CaptionSuffix);
  Send(NameText(name));
  session_.NameKnown[OwnPlayer()] = true;
}

void GameFlow::AskFirstTurn() {
  QString answer = Ask(Window().FirstTurnQuestion.toString(), u"Asignación del primer turno"_s, u"3"_s);
  if (const double value = Val(answer); value < 1 || value > 3) answer = u"3"_s;
  if (OwnPlayer() == Player::Client) {
    Send(TurnChoiceText(answer));
    return;
  }
  session_.TurnChoices.Server = RoundHalfEven<std::int16_t>(Val(answer));
  if (session_.TurnChoices.Client != -1) DecideFirstTurn(Window().Report.Ending);
}

void GameFlow::NameReceived(const QString& name) {
  AddMessage(u"Nombre recibido"_s);
  AddMessage(u"Va a jugar contra "_s + name);
  session_.PlayerNames.Set(OtherPlayer(), name);
  session_.NameKnown[OtherPlayer()] = true;
}

void GameFlow::TurnChoiceReceived(const QString& payload) {
  session_.TurnChoices.Client = ReadTurnChoice(payload);
  if (session_.TurnChoices.Server != -1) DecideFirstTurn(Window().Report.EndingAtLateChoice);
}

void GameFlow::DecideFirstTurn(QStringView mutual_ending) {
  const auto [own, other] = session_.TurnChoices;
  const bool mutual = own == other && (own == 1 || own == 2);
  const int starter = mutual ? own - 1 : random_.Below(2);
  const TurnDecision decision{.Starter = starter == 0 ? Player::Server : Player::Client, .Drawn = !mutual};
  if (!Send(TurnDecidedText(decision))) return;
  SettleFirstTurn(decision, mutual ? mutual_ending : Window().Report.Ending);
  FirstTurnSettled();
}

void GameFlow::TurnDecided(const QString& text) {
  if (OwnPlayer() == Player::Server) return;  // the server decides itself
  const auto decision = ReadTurnDecision(text);
  if (!decision) throw MalformedMessage("the starter is neither 0 nor 1");
  SettleFirstTurn(*decision, Window().Report.Ending);
  FirstTurnSettled();
}

void GameFlow::SettleFirstTurn(TurnDecision decision, QStringView ending) {
  session_.CurrentTurn = session_.StartingPlayer = decision.Starter;
  session_.TurnSettled = true;
  const QString name = session_.PlayerNames.Trimmed(decision.Starter);
  QString report = (decision.Drawn ? Window().Report.DrawOpening : Window().Report.MutualOpening) + name + u". ";
  if (!ending.isEmpty()) report += name + ending;
  AddMessage(report);
}

// ---- Another game ----

void GameFlow::AskForRematch() {
  EmptyTexts();
  const Button answer = ShowBox(u"¿Desea jugar otra partida?"_s, Window().RematchTitle.toString(), Buttons::YesNo);
  if (answer == Button::Yes) {
    if (!Send(message::kRematchYes.Token.toString())) return;
    session_.RematchWanted[OwnPlayer()] = true;
    StartNewGameIfBothWish();
    return;
  }
  SendUntilComplete(message::kRematchNo.Token.toString());
  End(AfterWindow::Selection);
}

void GameFlow::RematchAccepted() {
  EmptyTexts();
  AddMessage(u"Nueva partida."_s + session_.PlayerNames.Trimmed(OtherPlayer()) + u" desea jugar otra partida.");
  session_.RematchWanted[OtherPlayer()] = true;
  StartNewGameIfBothWish();
}

void GameFlow::RematchRefused() {
  StopReading();
  EmptyTexts();
  ShowBox(session_.PlayerNames.Trimmed(OtherPlayer()) +
              u" no desea jugar otra partida. Va a finalizarse la conexión y a cerrarse la ventana.",
          {});
  End(AfterWindow::Selection);
}

void GameFlow::StartNewGameIfBothWish() {
  if (session_.RematchWanted == PerPlayer<bool>{true, true}) StartNewGame();
}

void GameFlow::StartNewGame() {
  ResetForNewGame();
  const PlayerNames& names = session_.PlayerNames;
  ShowBox(u"Marcador actual: "_s + kCrLf + names.Trimmed(Player::Server) + u"  " +
              QString::number(session_.Scores.Server) + u" : " + names.Trimmed(Player::Client) + u" " +
              QString::number(session_.Scores.Client) + kCrLf + Window().NewGameOpening +
              names.Trimmed(session_.CurrentTurn) + Window().NewGameEnding,
          u"Nueva partida"_s);
}

// ---- What stands beside the board ----

ScoreboardSide GameFlow::SideOf(Player player) const {
  ScoreboardSide side{.Name = session_.PlayerNames.Trimmed(player), .Score = session_.Scores[player]};
  if (session_.GameOver && !session_.Winner) {
    side.State = PlayerState::Drew;
    side.StateWord = u"Tablas"_s;
  } else if (session_.GameOver && session_.Winner == player) {
    side.State = PlayerState::Won;
    side.StateWord = u"Ha ganado"_s;
  } else if (!session_.GameOver && session_.TurnSettled && session_.CurrentTurn == player) {
    side.State = PlayerState::ToMove;
    side.StateWord = MoveWord();
  }
  DescribeSide(player, side);
  return side;
}

void GameFlow::ShowState() {
  const Scoreboard scoreboard{.Own = SideOf(OwnPlayer()), .Other = SideOf(OtherPlayer())};
  if (scoreboard_ != scoreboard) {
    scoreboard_ = scoreboard;
    Screen().ShowScoreboard(scoreboard);
  }
  KeyHints keys;
  if (session_.GameOver) {
    keys = {{.Key = u"Intro"_s, .Use = u"o clic sobre el tablero: continuar"_s}};
  } else if (session_.TurnSettled) {
    keys = Keys();
  }
  if (keys_ != keys) {
    keys_ = keys;
    Screen().ShowKeys(keys);
  }
}

void GameFlow::EmptyTexts() {
  Screen().SetText(Box::TBMensajes, {});
  SetStatus({});
}

void GameFlow::SetStatus(const QString& text) {
  status_ = text;
  Screen().SetText(Box::TBEstado, text);
}

void GameFlow::AddPoint(Player player) {
  session_.Winner = player;
  std::int16_t& score = session_.Scores[player];
  if (score < std::numeric_limits<std::int16_t>::max()) ++score;
}

}  // namespace brontavia
