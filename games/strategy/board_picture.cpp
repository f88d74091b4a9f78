#include "games/strategy/board_picture.h"

#include "games/strategy/form_strategy.h"
#include "games/strategy/strategy_drawing.h"
#include "ui/board_picture.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

// "~" water, "r" and "b" pieces of the red and of the blue army, their ranks hidden.
CellContent ContentOf(QChar letter) {
  switch (letter.unicode()) {
    case u'~':
      return {.BackColour = 0x8B8B00, .Drawing = drawing::kLake};
    case u'r':
      return {.Text = u"*"_s, .ForeColour = 0x000070, .Drawing = drawing::BackOf(Player::Server)};
    case u'b':
      return {.Text = u"*"_s, .ForeColour = 0x700000, .Drawing = drawing::BackOf(Player::Client)};
    default:
      return {};
  }
}

}  // namespace

void PaintMiniEstrategaPicture(QPainter& painter, const QRectF& area, const QPalette& palette) {
  PaintBoardPicture(painter, area, palette, StrategyPainter(),
                    {.Rows = {u"bbbbbbb"_s, u"bbbbbbb"_s, u"bbbbbbb"_s, u" ~   ~ "_s, u" ~   ~ "_s, u"rrrrrrr"_s,
                              u"rrrrrrr"_s, u"rrrrrrr"_s},
                     .CellSize = {24, 21},
                     .ContentOf = ContentOf});
}

void PaintEstrategaPicture(QPainter& painter, const QRectF& area, const QPalette& palette) {
  PaintBoardPicture(painter, area, palette, StrategyPainter(),
                    {.Rows = {u"bbbbbbbbbb"_s, u"bbbbbbbbbb"_s, u"bbbbbbbbbb"_s, u"bbbbbbbbbb"_s, u"  ~~  ~~  "_s,
                              u"  ~~  ~~  "_s, u"rrrrrrrrrr"_s, u"rrrrrrrrrr"_s, u"rrrrrrrrrr"_s, u"rrrrrrrrrr"_s},
                     .CellSize = {20, 20},
                     .ContentOf = ContentOf});
}

}  // namespace brontavia
