#include "games/chess/board_picture.h"

#include "games/chess/chess_painter.h"
#include "ui/board_picture.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

CellContent ContentOf(QChar letter) {
  if (letter == u' ') return {};
  return {.Text = letter};
}

}  // namespace

void PaintChessPicture(QPainter& painter, const QRectF& area, const QPalette& palette) {
  PaintBoardPicture(
      painter, area, palette, ChessPainter(),
      {.Rows = {u"t r "_s, u"    "_s, u"   D"_s, u" RP "_s}, .CellSize = {48, 48}, .ContentOf = ContentOf});
}

}  // namespace brontavia
