#include "games/strategy/board_picture.h"

#include "games/strategy/form_strategy.h"
#include "ui/board_picture.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

CellContent ContentOf(QChar letter) {
  if (letter == u'~') return {.BackColour = 0x8B8B00};
  if (letter == u'*') return {.Text = letter, .ForeColour = 0x700000};
  return {};
}

}  // namespace

void PaintMiniEstrategaPicture(QPainter& painter, const QRectF& area, const QPalette& palette) {
  PaintBoardPicture(painter, area, palette, StrategyPainter(),
                    {.Rows = {u"*******"_s, u"*******"_s, u"*******"_s, u" ~   ~ "_s, u" ~   ~ "_s, u"ooooooo"_s,
                              u"ooooooo"_s, u"ooooooo"_s},
                     .CellSize = {48, 42},
                     .ContentOf = ContentOf});
}

void PaintEstrategaPicture(QPainter& painter, const QRectF& area, const QPalette& palette) {
  PaintBoardPicture(painter, area, palette, StrategyPainter(),
                    {.Rows = {u"**********"_s, u"**********"_s, u"**********"_s, u"**********"_s, u"  ~~  ~~  "_s,
                              u"  ~~  ~~  "_s, u"oooooooooo"_s, u"oooooooooo"_s, u"oooooooooo"_s, u"oooooooooo"_s},
                     .CellSize = {48, 48},
                     .ContentOf = ContentOf});
}

}  // namespace brontavia
