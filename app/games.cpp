#include "app/games.h"

#include <array>
#include <utility>

#include "games/chess/form_aje.h"
#include "games/naval/form_bar.h"
#include "games/strategy/form_strategy.h"
#include "games/three_in_row/form_ter.h"

namespace brontavia {
namespace {

template <typename Window>
GameWindow* Make(ProcessValues& values, std::unique_ptr<Connection> connection) {
  return new Window(values, std::move(connection));
}

constexpr std::array kGames{Game{kFormTER, Make<FormTER>}, Game{kFormBAR, Make<FormBAR>}, Game{kFormMES, Make<FormMES>},
                            Game{kFormEST, Make<FormEST>}, Game{kFormAje, Make<FormAje>}};

}  // namespace

std::span<const Game> Games() { return kGames; }

}  // namespace brontavia
