#include "games/naval/board_picture.h"

#include "games/naval/form_bar.h"
#include "games/naval/sea_display.h"
#include "ui/board_picture.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

CellContent ContentOf(QChar letter) {
  if (letter == u'h') return {.BackColour = kHitColour};
  if (letter == u'w') return {.BackColour = kWaterColour};
  return {};
}

}  // namespace

void PaintNavalPicture(QPainter& painter, const QRectF& area, const QPalette& palette) {
  PaintBoardPicture(painter, area, palette, NavalPainter(),
                    {.Rows = {u"     "_s, u"     "_s, u"hh   "_s, u"  w  "_s, u"w    "_s},
                     .CellSize = {48, 48},
                     .ContentOf = ContentOf});
}

}  // namespace brontavia
