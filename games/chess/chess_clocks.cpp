#include "games/chess/chess_clocks.h"

#include <utility>

#include "text/qt_text.h"

namespace brontavia {

using namespace Qt::StringLiterals;

namespace {

const QString kTitle = u"Establecer tiempos"_s;

}  // namespace

ChessClocks::ChessClocks(ChessHost& host, Screen& screen, const ChessGame& game, SecondTimer::Now now)
    : host_(host), screen_(screen), game_(game), timer1_(std::move(now)) {
  QObject::connect(&timer1_, &SecondTimer::Passed, &timer1_, [this](int seconds) {
    host_.RunHandler([this, seconds] {
      times_.Tick(game_.Position().SideToMove, seconds);
      Show();
    });
  });
}

void ChessClocks::Reset() {
  timer1_.Stop();
  times_.Reset();
  Show();
}

void ChessClocks::MoveStands() {
  CatchUp();
  if (game_.Position().SideToMove == Colour::White && !timer1_.IsRunning()) timer1_.Start();
}

void ChessClocks::Show() { screen_.SetText(Box::TBReloj, ToQString(times_.Text())); }

// ---- Commands ----

void ChessClocks::Toggle() {
  CatchUp();
  timer1_.IsRunning() ? timer1_.Stop() : timer1_.Start();
  host_.SetStatus(u"Relojes "_s + (timer1_.IsRunning() ? u" activados."_s : u" parados."_s));
}

void ChessClocks::AskTimes() {
  const auto white = AskTime(Colour::White);
  if (!white) return;
  const auto black = AskTime(Colour::Black);
  if (!black) return;
  if (!times_.Set(*white, *black)) {
    host_.Tell(u"El tiempo es demasiado largo: un reloj no puede pasar de 32767 segundos."_s, kTitle);
    return;
  }
  Show();
  screen_.AddMessage(u"Establecido "_s + ToQString(times_.Text()));
}

std::optional<ClockTime> ChessClocks::AskTime(Colour colour) {
  const QString side = colour == Colour::White ? u"blancas"_s : u"negras"_s;
  const QString answer = host_.Ask(u"Establezca el tiempo de las "_s + side + u"(minutos:segundos)", kTitle,
                                   ToQString(times_.Proposal(colour)));
  return ReadClockTime(Characters(answer));
}

}  // namespace brontavia
