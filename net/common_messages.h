// Fields of the common messages, writer beside reader.
#pragma once

#include <QString>
#include <cstdint>
#include <optional>

#include "net/player.h"

namespace brontavia {

// Who starts, and how that came about.
struct TurnDecision {
  Player Starter = Player::Server;
  bool Drawn = false;
};

QString AcceptanceText(QStringView game_code);
// Whether `text` accepts a client of `game_code`: "|" and the code stand somewhere in it. What follows the code is not
// looked at, so that a longer code which begins with it is taken too.
bool AcceptsGame(QStringView text, QStringView game_code);

QString NameText(QStringView name);

QString TurnChoiceText(QStringView answer);
// The client's choice in the server's view: 1 the server starts, 2 the client starts, 3 and whatever else there is a
// draw. `payload` reads as a number, 0 when it is none.
std::int16_t ReadTurnChoice(QStringView payload);

QString TurnDecidedText(TurnDecision decision);
// Read from the whole text. Nothing when the starter is no player; a text that ends before it names the server.
std::optional<TurnDecision> ReadTurnDecision(QStringView text);

}  // namespace brontavia
