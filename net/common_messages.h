// Fields of the common messages, writer beside reader.
#pragma once

#include <QString>
#include <cstdint>
#include <optional>

namespace brontavia {

// Who starts, and how that came about.
struct TurnDecision {
  int Starter = 0;  // player number, 0 or 1
  bool Drawn = false;
};

QString AcceptanceText(QStringView game_code);
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
