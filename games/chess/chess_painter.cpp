#include "games/chess/chess_painter.h"

#include <QImageReader>
#include <QPainterPath>
#include <algorithm>
#include <array>
#include <utility>

#include "ui/board_view.h"
#include "ui/look.h"

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
const QColor kWhite(0xFF, 0xFD, 0xF7);
const QColor kBlack(0x24, 0x27, 0x2C);

// Parts of the side of a square.
constexpr qreal kPiece = 0.96;
constexpr qreal kLetter = 0.7;
constexpr qreal kLetterLine = 0.07;

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
  if (look.Marks.testFlag(Mark::Selected)) look::PaintSelected(painter, area);
  if (look.Current) look::PaintCurrent(painter, area);
  if (look.Marks.testFlag(Mark::LastMove)) look::PaintLastMove(painter, area);
  if (look.Marks.testFlag(Mark::Reachable)) look::PaintReachable(painter, area, !look.Text.isEmpty());
  if (!look.Text.isEmpty()) PaintPiece(painter, area, look.Text.front());
}

void ChessPainter::PaintOver(QPainter& painter, const BoardView& board) const {
  if (board.Model().WaitsForClick()) {
    const QRect squares = board.CellRect({1, 1}) | board.CellRect({8, 8});
    look::PaintWaitsForClick(painter, squares, look::ColoursOnLight());
  }
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
