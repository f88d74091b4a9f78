#include "games/three_in_row/board_picture.h"

#include "games/three_in_row/ter_painter.h"
#include "ui/board_picture.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

CellContent ContentOf(QChar letter) {
  if (letter == u'X') return {.Text = letter, .ForeColour = 0x0000FF};
  if (letter == u'O') return {.Text = letter, .ForeColour = 0x00FF00};
  return {.Text = letter};
}

}  // namespace

void PaintTerPicture(QPainter& painter, const QRectF& area, const QPalette& palette) {
  PaintBoardPicture(painter, area, palette, TerPainter(),
                    {.Rows = {u"X*O"_s, u"*X*"_s, u"*O*"_s}, .CellSize = {60, 60}, .ContentOf = ContentOf});
}

}  // namespace brontavia
