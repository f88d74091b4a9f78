#include "games/three_in_row/ter_painter.h"

#include <algorithm>
#include <optional>

#include "games/three_in_row/three_in_row_board.h"
#include "ui/board_view.h"
#include "ui/look.h"

namespace brontavia {
namespace {

// Parts of a cell's side.
constexpr qreal kPieceSide = 0.5;
constexpr qreal kStroke = 0.085;
constexpr qreal kContour = 0.12;
constexpr qreal kDotRadius = 0.035;
constexpr qreal kCorner = 0.14;      // of the last move; the cells of three rows are large
constexpr qreal kLineInset = 0.06;   // of the four lines' ends from the edge of the board
constexpr qreal kStrokeEnd = 0.33;   // how far the winning stroke reaches beyond the middle of its last cell
constexpr qreal kStrokeWidth = 9.0;  // in pixels, its edges included
// In pixels.
constexpr qreal kLineWidth = 3;
constexpr qreal kCurrentInset = 5;
constexpr qreal kEdgeOfWinning = 3;
constexpr qreal kDottedWidth = 2.5;
constexpr qreal kSmallestDot = 2;
constexpr qreal kSmallestCorner = 10;
constexpr int kDarkerContour = 220;  // #740000 for #FF0000

QColor ColourOf(char16_t symbol) {
  return symbol == ThreeInRowBoard::PlayerSymbols.Server ? QColor(Qt::red) : QColor(Qt::green);
}

bool IsPiece(char16_t symbol) {
  return symbol == ThreeInRowBoard::PlayerSymbols.Server || symbol == ThreeInRowBoard::PlayerSymbols.Client;
}

QRectF PieceRect(const QRectF& cell) {
  const qreal inset = (1 - kPieceSide) / 2 * cell.width();
  return cell.adjusted(inset, inset, -inset, -inset);
}

void StrokePiece(QPainter& painter, const QRectF& piece, char16_t symbol, const QPen& pen) {
  painter.setPen(pen);
  painter.setBrush(Qt::NoBrush);
  if (symbol == ThreeInRowBoard::PlayerSymbols.Server) {
    painter.drawLines({QLineF(piece.topLeft(), piece.bottomRight()), QLineF(piece.topRight(), piece.bottomLeft())});
  } else {
    painter.drawEllipse(piece);
  }
}

QPen RoundPen(const QColor& colour, qreal width) { return {colour, width, Qt::SolidLine, Qt::RoundCap}; }

// Where a piece has been.
void PaintLiftedPiece(QPainter& painter, const QRectF& cell, char16_t symbol, const QColor& colour) {
  QPen pen = RoundPen(colour, kDottedWidth);
  pen.setDashPattern({1.2, 3.2});
  StrokePiece(painter, PieceRect(cell), symbol, pen);
}

// The part of the four lines that lies in the cell.
void PaintLines(QPainter& painter, const QRectF& area, CellIndex cell, const QColor& colour) {
  const qreal side = area.width();
  const QPointF origin = area.topLeft() - QPointF(cell.Column, cell.Row) * side;
  painter.save();
  painter.setClipRect(area, Qt::IntersectClip);
  painter.setPen(RoundPen(colour, kLineWidth));
  painter.translate(origin);
  for (int i = 1; i < kTerSide; ++i) {
    painter.drawLines({QLineF(i * side, kLineInset * side, i * side, (kTerSide - kLineInset) * side),
                       QLineF(kLineInset * side, i * side, (kTerSide - kLineInset) * side, i * side)});
  }
  painter.restore();
}

void PaintGround(QPainter& painter, const QRectF& area, const CellLook& look, const look::Colours& colours) {
  painter.fillRect(area, colours.Base);
  PaintLines(painter, area, look.Index, colours.Line);
  const bool winning = look.Marks.testFlag(Mark::WinningLine);
  if (winning) look::PaintWinningCell(painter, area, colours);
  if (!look.Current) return;
  const qreal inset = winning ? kCurrentInset + kEdgeOfWinning : kCurrentInset;
  painter.setPen(Qt::NoPen);
  painter.setBrush(colours.Highlight);
  painter.drawRoundedRect(area.adjusted(inset, inset, -inset, -inset), look::kPlateRadius, look::kPlateRadius);
}

// The ends of the stroke through the cells that are marked.
std::optional<QLineF> WinningStroke(const BoardView& board) {
  std::optional<QRectF> first;
  QRectF last;
  for (int cell = 0; cell < kTerCells; ++cell) {
    const CellIndex index{.Row = cell / kTerSide, .Column = cell % kTerSide};
    if (!board.Model().Cell(index).Marks.testFlag(Mark::WinningLine)) continue;
    last = board.CellRect(index);
    if (!first) first = last;
  }
  if (!first) return std::nullopt;
  const QPointF beyond = (last.center() - first->center()) / (kTerSide - 1) * kStrokeEnd;
  return QLineF(first->center() - beyond, last.center() + beyond);
}

}  // namespace

void TerPainter::Paint(QPainter& painter, const QRectF& area, const CellLook& look) const {
  const look::Colours colours = look::ColoursOf(look.Palette);
  PaintGround(painter, area, look, colours);
  const char16_t symbol = look.Text.isEmpty() ? ThreeInRowBoard::kEmpty : look.Text.front().unicode();
  const qreal side = area.width();
  const auto lifted = static_cast<char16_t>(look.Drawing);
  if (IsPiece(symbol)) {
    const QRectF piece = PieceRect(area);
    if (!look.Current) {
      StrokePiece(painter, piece, symbol, RoundPen(look.ForeColour.darker(kDarkerContour), side * kContour));
    }
    StrokePiece(painter, piece, symbol,
                RoundPen(look.Current ? colours.HighlightText : look.ForeColour, side * kStroke));
  } else if (IsPiece(lifted)) {
    const QColor dotted = colours.Dark ? ColourOf(lifted) : ColourOf(lifted).darker(kDarkerContour);
    PaintLiftedPiece(painter, area, lifted, look.Current ? colours.HighlightText : dotted);
  } else {
    const qreal radius = std::max(side * kDotRadius, kSmallestDot);
    painter.setPen(Qt::NoPen);
    painter.setBrush(look.Current ? colours.HighlightText : colours.Dot);
    painter.drawEllipse(area.center(), radius, radius);
  }
  if (look.Marks.testFlag(Mark::Lifted)) look::PaintLifted(painter, area);
  if (look.Marks.testFlag(Mark::LastMove)) {
    const QRectF inside = area.adjusted(kCurrentInset, kCurrentInset, -kCurrentInset, -kCurrentInset);
    look::PaintLastMove(painter, inside, std::max(side * kCorner, kSmallestCorner));
  }
}

void TerPainter::PaintOver(QPainter& painter, const BoardView& board) const {
  if (const auto stroke = WinningStroke(board)) look::PaintWinningStroke(painter, stroke->p1(), stroke->p2());
  if (!board.Model().WaitsForClick()) return;
  const QRectF area = QRectF(board.CellRect({0, 0})).united(board.CellRect({kTerSide - 1, kTerSide - 1}));
  look::PaintWaitsForClick(painter, area, look::ColoursOf(board.palette()));
}

QRegion TerPainter::OverArea(const BoardView& board) const {
  const auto stroke = WinningStroke(board);
  if (!stroke) return {};
  const QRectF area = QRectF(stroke->p1(), stroke->p2()).normalized();
  return area.adjusted(-kStrokeWidth, -kStrokeWidth, kStrokeWidth, kStrokeWidth).toAlignedRect();
}

}  // namespace brontavia
