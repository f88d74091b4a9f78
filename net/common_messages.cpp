#include "net/common_messages.h"

#include "net/message_tokens.h"
#include "text/qt_text.h"
#include "text/rounding.h"

namespace brontavia {
namespace {

constexpr int kStarterPosition = 10;
constexpr QChar kMutual = u'0';
constexpr QChar kDrawn = u'1';

}  // namespace

QString AcceptanceText(QStringView game_code) { return message::kAccepted.Token + u"|" + game_code; }

bool AcceptsGame(QStringView text, QStringView game_code) { return text.contains(QString(u"|" + game_code)); }

QString NameText(QStringView name) { return message::kName.Token + name; }

QString TurnChoiceText(QStringView answer) { return message::kTurnChoice.Token + TrimBlanks(answer); }

std::int16_t ReadTurnChoice(QStringView payload) {
  const auto choice = RoundHalfEven<std::int16_t>(Val(payload));
  if (choice >= 3) return choice;
  return RoundHalfEven<std::int16_t>(3.0 - choice);
}

QString TurnDecidedText(TurnDecision decision) {
  return message::kTurnDecided.Token + QString::number(NumberOf(decision.Starter)) +
         (decision.Drawn ? kDrawn : kMutual);
}

std::optional<TurnDecision> ReadTurnDecision(QStringView text) {
  const auto starter = PlayerOfNumber(Val(From(text, kStarterPosition).left(1)));
  if (!starter) return std::nullopt;
  return TurnDecision{.Starter = *starter, .Drawn = !text.endsWith(kMutual)};
}

}  // namespace brontavia
