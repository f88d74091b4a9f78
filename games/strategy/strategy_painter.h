// How the cells of the strategy boards look.
#pragma once

#include <QCache>
#include <QFont>
#include <QPixmap>

#include "ui/cell_painter.h"

namespace brontavia {

// Draws what games/strategy/strategy_drawing.h tells: faces of pieces with emblem and name, backs with the crest of
// their army, lakes. The name of a piece is the cell's text; where it has no room, the emblem stands alone, and where
// emblems cannot be shown, the name. Board and pieces are the same in every palette: the colours of the armies are
// dark.
class StrategyPainter : public CellPainter {
 public:
  StrategyPainter();

  void Paint(QPainter& painter, const QRectF& area, const CellLook& look) const override;
  // The edge of the board, and the sign that it waits for a click.
  void PaintOver(QPainter& painter, const BoardView& board) const override;

 private:
  // A cell without the marks that come and go with every move and every key.
  struct Picture {
    QString Text;
    int Drawing;
    bool Selected;
    QSize Size;  // in device pixels
    friend bool operator==(const Picture&, const Picture&) = default;
    friend std::size_t qHash(const Picture& picture, std::size_t seed = 0) {
      return qHashMulti(seed, picture.Text, picture.Drawing, picture.Selected, picture.Size.width(),
                        picture.Size.height());
    }
  };

  // All but the marks that come and go.
  void PaintGround(QPainter& painter, const QRectF& area, const CellLook& look) const;

  // Of one font and one size of cells.
  mutable QCache<Picture, QPixmap> pictures_;
  mutable QFont font_;
  mutable QSizeF cell_size_;
};

}  // namespace brontavia
