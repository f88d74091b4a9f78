#include "games/chess/chess_painter.h"

#include <QImageReader>
#include <QPainterPath>
#include <algorithm>
#include <array>
#include <utility>

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

struct Kind {
  char16_t Letter;  // White's
  const char16_t* Name;
};

constexpr std::array<Kind, 6> kKinds{
    {{u'P', u"pawn"}, {u'T', u"rook"}, {u'C', u"knight"}, {u'A', u"bishop"}, {u'D', u"queen"}, {u'R', u"king"}}};

const QColor kLightSquare(0xE2, 0xE8, 0xED);
const QColor kDarkSquare(0x8A, 0xA1, 0xB5);
const QColor kSelected(0xFF, 0xC9, 0x3C);
const QColor kSelectedRim(0x8A, 0x5A, 0x00);
const QColor kLastMove(0xB0, 0x45, 0x08);
const QColor kReachable(0x1B, 0x5E, 0x3B);
const QColor kWhite(0xFF, 0xFD, 0xF7);
const QColor kBlack(0x24, 0x27, 0x2C);

// Parts of the side of a square.
constexpr qreal kPiece = 0.96;
constexpr qreal kLetter = 0.7;
constexpr qreal kLetterLine = 0.07;
constexpr qreal kCorner = 0.24;
constexpr qreal kCursor = 0.07;
constexpr qreal kRim = 0.04;
constexpr qreal kDot = 0.32;
constexpr qreal kRing = 0.08;

// The cells of one board differ by a pixel, so two sizes are in use at a time.
constexpr int kKeptPictures = 2 * 2 * static_cast<int>(kKinds.size());

QString FileName(QChar letter) {
  const auto* kind = std::find_if(kKinds.begin(), kKinds.end(),
                                  [&](const Kind& each) { return each.Letter == letter.toUpper().unicode(); });
  if (kind == kKinds.end()) return {};
  return (letter.isUpper() ? u"white_"_s : u"black_"_s) + QString::fromUtf16(kind->Name) + u".svg"_s;
}

qreal SideOf(const QRectF& area) { return std::min(area.width(), area.height()); }

QRectF Centred(const QRectF& area, qreal side) {
  QRectF centred(0, 0, side, side);
  centred.moveCenter(area.center());
  return centred;
}

// Just inside the edges.
void PaintRim(QPainter& painter, const QRectF& area, const QColor& colour, qreal width) {
  const qreal half = width / 2;
  painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(area.adjusted(half, half, -half, -half));
}

void PaintSelected(QPainter& painter, const QRectF& area) {
  painter.fillRect(area, kSelected);
  PaintRim(painter, area, kSelectedRim, SideOf(area) * kRim);
}

// The dark line shows it whatever the colour of highlights.
void PaintCursor(QPainter& painter, const QRectF& area, const QColor& highlight) {
  const qreal width = std::max(2.0, SideOf(area) * kCursor);
  PaintRim(painter, area, kBlack, width * 1.5);
  PaintRim(painter, area, highlight, width);
}

void PaintLastMove(QPainter& painter, const QRectF& area) {
  const qreal size = SideOf(area) * kCorner;
  painter.setPen(Qt::NoPen);
  painter.setBrush(kLastMove);
  const auto corner = [&](QPointF at, qreal x, qreal y) {
    painter.drawPolygon(QPolygonF({at, at + QPointF(x, 0), at + QPointF(0, y)}));
  };
  corner(area.topLeft(), size, size);
  corner(area.topRight(), -size, size);
  corner(area.bottomLeft(), size, -size);
  corner(area.bottomRight(), -size, -size);
}

// A dot in the middle, or a ring around the piece that may be taken.
void PaintReachable(QPainter& painter, const QRectF& area, bool occupied) {
  const qreal side = SideOf(area);
  const qreal width = side * kRing;
  painter.setPen(occupied ? QPen(kReachable, width) : QPen(Qt::NoPen));
  painter.setBrush(occupied ? QBrush(Qt::NoBrush) : QBrush(kReachable));
  painter.drawEllipse(Centred(area, occupied ? side - 1.5 * width : side * kDot));
}

void PaintLetter(QPainter& painter, const QRectF& area, QChar letter) {
  QFont font = painter.font();
  font.setPixelSize(std::max(1, static_cast<int>(SideOf(area) * kLetter)));
  font.setBold(true);
  const QFontMetricsF metrics(font);
  const QPointF start = area.center() + QPointF(-metrics.horizontalAdvance(letter) / 2, metrics.capHeight() / 2);
  QPainterPath outline;
  outline.addText(start, font, letter);
  const QColor& fill = letter.isUpper() ? kWhite : kBlack;
  const QColor& line = letter.isUpper() ? kBlack : kWhite;
  painter.strokePath(outline, QPen(line, SideOf(area) * kLetterLine, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.fillPath(outline, fill);
}

}  // namespace

ChessPainter::ChessPainter(QString directory) : directory_(std::move(directory)), pictures_(kKeptPictures) {}

void ChessPainter::Paint(QPainter& painter, const QRectF& area, const CellLook& look) const {
  if (look.Header) {
    PaintHeader(painter, area, look);
    return;
  }
  const bool light = (look.Index.Row + look.Index.Column) % 2 == 0;
  painter.fillRect(area, light ? kLightSquare : kDarkSquare);
  if (look.Marks.testFlag(Mark::Selected)) PaintSelected(painter, area);
  if (look.Current) PaintCursor(painter, area, look.Palette.color(QPalette::Highlight));
  if (look.Marks.testFlag(Mark::LastMove)) PaintLastMove(painter, area);
  if (look.Marks.testFlag(Mark::Reachable)) PaintReachable(painter, area, !look.Text.isEmpty());
  if (!look.Text.isEmpty()) PaintPiece(painter, area, look.Text.front());
}

void ChessPainter::PaintPiece(QPainter& painter, const QRectF& area, QChar letter) const {
  const qreal ratio = painter.deviceTransform().m11();
  const int pixels = qRound(SideOf(area) * kPiece * ratio);
  const QPixmap picture = Picture(letter.unicode(), pixels);
  if (picture.isNull()) {
    PaintLetter(painter, area, letter);
    return;
  }
  painter.drawPixmap(Centred(area, pixels / ratio), picture, QRectF(picture.rect()));
}

QPixmap ChessPainter::Picture(char16_t letter, int side) const {
  const Piece piece{letter, side};
  if (const QPixmap* kept = pictures_.object(piece)) return *kept;
  QImageReader reader(directory_ + u'/' + FileName(letter), "svg");
  reader.setScaledSize({side, side});
  QPixmap picture = QPixmap::fromImageReader(&reader);
  // One that cannot be shown is kept too, so that painting does not look for it each time.
  pictures_.insert(piece, new QPixmap(picture));
  return picture;
}

}  // namespace brontavia
