#include "games/naval/board_picture.h"

#include "games/naval/naval_painter.h"
#include "games/naval/sea_display.h"
#include "games/naval/sea_drawing.h"
#include "ui/board_picture.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

// A ship of four cells across, "abcd", one of three downwards, "xyz", shots that hit, "h", and shots on water, "w".
CellContent ContentOf(QChar letter) {
  const char16_t code = letter.unicode();
  if (code >= u'a' && code <= u'd') return {.Drawing = Packed({.ShipLength = 4, .Segment = code - u'a' + 1})};
  if (code >= u'x' && code <= u'z') {
    return {.Drawing = Packed({.ShipLength = 3, .Segment = code - u'x' + 1, .Upright = true})};
  }
  if (code == u'h') return {.BackColour = kHitColour};
  if (code == u'w') return {.BackColour = kWaterColour};
  return {};
}

}  // namespace

void PaintNavalPicture(QPainter& painter, const QRectF& area, const QPalette& palette) {
  // The ships' names have no room in cells of this size.
  PaintBoardPicture(painter, area, palette, NavalPainter(),
                    {.Rows = {u"abcd "_s, u"     "_s, u"hh  x"_s, u"  w y"_s, u"w   z"_s},
                     .CellSize = {20, 20},
                     .ContentOf = ContentOf,
                     .First = {1, 1}});
}

}  // namespace brontavia
