#include "app/games.h"

#include <array>
#include <utility>

#include "games/chess/board_picture.h"
#include "games/chess/form_aje.h"
#include "games/naval/board_picture.h"
#include "games/naval/form_bar.h"
#include "games/strategy/board_picture.h"
#include "games/strategy/form_strategy.h"
#include "games/three_in_row/board_picture.h"
#include "games/three_in_row/form_ter.h"

namespace brontavia {
namespace {

template <typename Window>
GameWindow* Make(ProcessValues& values, std::unique_ptr<Connection> connection) {
  return new Window(values, std::move(connection));
}

constexpr std::array kGames{
    Game{kFormTER, Make<FormTER>, PaintTerPicture}, Game{kFormBAR, Make<FormBAR>, PaintNavalPicture},
    Game{kFormMES, Make<FormMES>, PaintMiniEstrategaPicture}, Game{kFormEST, Make<FormEST>, PaintEstrategaPicture},
    Game{kFormAje, Make<FormAje>, PaintChessPicture}};

}  // namespace

std::span<const Game> Games() { return kGames; }

}  // namespace brontavia
