// What all five games share once the connection stands: the handshake (names, who starts), the dispatcher, another
// game, the score. A game derives from it, resets its own board and answers its own messages.
#pragma once

#include <QString>
#include <cstdint>
#include <functional>
#include <optional>
#include <stdexcept>
#include <unordered_map>

#include "net/common_messages.h"
#include "net/connection_flow.h"
#include "net/player_names.h"
#include "net/random_draw.h"

namespace brontavia {

// State of one window's session.
struct Session {
  brontavia::PlayerNames PlayerNames;
  PerPlayer<bool> NameKnown;
  // Who is to start, in the server's view: 1 the server, 2 the client, 3 a draw, -1 not yet known. Only the server
  // knows both. Never cleared, so that a choice that arrives later decides again.
  PerPlayer<std::int16_t> TurnChoices{-1, -1};
  Player CurrentTurn = Player::Server;
  Player StartingPlayer = Player::Server;
  bool TurnSettled = false;  // the session's first turn has been decided; no move before
  PerPlayer<std::int16_t> Scores;
  bool GameOver = false;
  std::optional<Player> Winner;  // of the last game; nothing after a draw
  PerPlayer<bool> RematchWanted;
};

class GameFlow : public ConnectionFlow {
  Q_OBJECT

 public:
  GameFlow(const WindowTraits& window, const Seams& seams, const RandomSeed& seed);

  [[nodiscard]] const Session& State() const { return session_; }

 protected:
  // Answers a message, given its payload. One that cannot be right throws (std::out_of_range from a board, or
  // MalformedMessage) before it has changed anything; the window's other messages in the same text are still answered.
  using Handler = std::function<void(const QString& payload)>;
  struct MalformedMessage : std::runtime_error {
    using std::runtime_error::runtime_error;
  };

  // For the constructor of a game: which handler answers `message`. No session starts unless every message that the
  // window's traits list has one, and no other message.
  void On(const Message& message, Handler handler);

  // ---- What a game adds ----

  // The board is reset before the names are asked, and again for each further game.
  virtual void ResetForSession() = 0;
  virtual void ResetForNewGame() = 0;
  // The first turn has been decided, reported and, on the server, sent.
  virtual void FirstTurnSettled() {}
  // The sign of `player`, and what else the strip tells of him than name, score, whose turn it is and who has won.
  // Nothing that the own player may not know.
  virtual void DescribeSide(Player player, ScoreboardSide& side) const = 0;
  // What the player to move does: "Mueve".
  [[nodiscard]] virtual QString MoveWord() const { return QStringLiteral("Mueve"); }
  // The keys of the phase that the game is in, while it goes on.
  [[nodiscard]] virtual KeyHints Keys() const = 0;

  // ---- What a game uses ----

  void StartSession() override;
  void HandleMessage(const QString& text) override;
  void AddMessage(const QString& line) { Screen().AddMessage(line); }
  void EmptyTexts();  // TBMensajes and TBEstado
  // What TBEstado shows.
  [[nodiscard]] const QString& Status() const { return status_; }
  // TBEstado is replaced by `text`, or gains it at its end.
  void SetStatus(const QString& text);
  void AddToStatus(const QString& text) { SetStatus(status_ + text); }
  // `player` has won.
  void AddPoint(Player player);
  // The board was clicked after the end of a game.
  void AskForRematch();

  void ShowState() override;

  // The generator of this window, seeded once.
  RandomDraw& Random() { return random_; }

  Session session_;

 private:
  [[nodiscard]] ScoreboardSide SideOf(Player player) const;
  // Throws std::logic_error when they are not those of the messages that the window lists.
  void CheckHandlers() const;
  void AskName();
  void AskFirstTurn();
  void NameReceived(const QString& name);
  void TurnChoiceReceived(const QString& payload);
  void TurnDecided(const QString& text);
  void DecideFirstTurn(QStringView mutual_ending);
  void SettleFirstTurn(TurnDecision decision, QStringView ending);
  void RematchAccepted();
  void RematchRefused();
  void StartNewGameIfBothWish();
  void StartNewGame();

  RandomDraw random_;
  QString status_;
  std::optional<Scoreboard> scoreboard_;  // as it was shown last
  std::optional<KeyHints> keys_;          // as they were shown last
  std::unordered_map<const Message*, Handler> handlers_;
};

}  // namespace brontavia
