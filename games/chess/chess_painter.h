// How the cells of the chess board look.
#pragma once

#include <QCache>
#include <QPixmap>

#include "ui/cell_painter.h"

namespace brontavia {

// Text of a cell: the letter of the piece on it, "P" "T" "C" "A" "D" "R" for White's pawn, rook, knight, bishop, queen
// and king, lower case for Black's; empty on an empty square. Squares, pieces and marks keep their colours in every
// palette; headers and the current cell follow it. A cell is a light square when its row and column add up to an even
// number.
class ChessPainter : public CellPainter {
 public:
  // `directory` holds the pictures, white_pawn.svg to black_king.svg. A piece whose picture cannot be shown, as where
  // Qt has no plugin for SVG, is drawn as its letter.
  explicit ChessPainter(QString directory = QStringLiteral(":/chess"));

  void Paint(QPainter& painter, const QRectF& area, const CellLook& look) const override;
  // The sign that the board waits for a click.
  void PaintOver(QPainter& painter, const BoardView& board) const override;

 private:
  struct Piece {
    char16_t Letter;
    int Side;  // of its square picture, in device pixels
    friend bool operator==(const Piece&, const Piece&) = default;
    friend std::size_t qHash(const Piece& piece, std::size_t seed = 0) {
      return qHashMulti(seed, piece.Letter, piece.Side);
    }
  };

  // Null when the picture cannot be shown. `side` in device pixels.
  [[nodiscard]] QPixmap Picture(char16_t letter, int side) const;
  void PaintPiece(QPainter& painter, const QRectF& area, QChar letter) const;

  QString directory_;
  mutable QCache<Piece, QPixmap> pictures_;
};

}  // namespace brontavia
