#include "app/game_delegate.h"

#include <QPainter>

#include "app/games.h"
#include "ui/look.h"

namespace brontavia {
namespace {

constexpr int kMargin = 20;       // beside the picture and the arrow
constexpr int kAbovePicture = 9;  // and below it
constexpr int kBesidePicture = 28;
constexpr int kArrow = 8;
constexpr qreal kArrowWidth = 3;
constexpr int kHighlightRadius = 4;

}  // namespace

GameDelegate::GameDelegate(QObject* parent) : QStyledItemDelegate(parent), kept_(Games().size()) {}

void GameDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const look::Colours colours = look::ColoursOf(option.palette);
  const bool chosen = option.state.testFlag(QStyle::State_Selected);
  const QRectF row = option.rect;
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  if (chosen) {
    painter->setPen(Qt::NoPen);
    painter->setBrush(colours.Highlight);
    painter->drawRoundedRect(row, kHighlightRadius, kHighlightRadius);
  } else if (option.state.testFlag(QStyle::State_HasFocus)) {
    look::PaintFocusRing(*painter, row.adjusted(2, 2, -2, -2), colours, 0, kHighlightRadius);
  } else if (index.row() > 0) {
    painter->setPen(colours.Line);
    painter->drawLine(row.topLeft() + QPointF(kMargin, 0.5), row.topRight() + QPointF(-kMargin, 0.5));
  }

  const int side = row_height_ - 2 * kAbovePicture;
  const QPoint corner = option.rect.topLeft() + QPoint(kMargin, kAbovePicture);
  painter->drawPixmap(corner, Picture(index.row(), side, painter->device()->devicePixelRatioF(), option.palette));

  const QColor ink = chosen ? colours.HighlightText : colours.Text;
  QRectF name = row;
  name.setLeft(corner.x() + side + kBesidePicture);
  QFont font = option.font;
  font.setBold(chosen);
  painter->setFont(font);
  painter->setPen(ink);
  painter->drawText(name, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, index.data().toString());
  if (chosen) {
    const QPointF tip(row.right() - kMargin, row.center().y());
    painter->setPen(QPen(ink, kArrowWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPolyline(QPolygonF({tip + QPointF(-kArrow, -kArrow), tip, tip + QPointF(-kArrow, kArrow)}));
  }
  painter->restore();
}

const QPixmap& GameDelegate::Picture(int game, int side, qreal scale, const QPalette& palette) const {
  Kept& kept = kept_[static_cast<std::size_t>(game)];
  const QSize pixels = (QSizeF(side, side) * scale).toSize();
  if (kept.Picture.size() != pixels || kept.Palette != palette.cacheKey()) {
    kept = {.Picture = QPixmap(pixels), .Palette = palette.cacheKey()};
    kept.Picture.setDevicePixelRatio(scale);
    kept.Picture.fill(Qt::transparent);
    QPainter painter(&kept.Picture);
    painter.setRenderHint(QPainter::Antialiasing);
    Games()[static_cast<std::size_t>(game)].PaintPicture(painter, QRectF(0, 0, side, side), palette);
  }
  return kept.Picture;
}

}  // namespace brontavia
