#include "games/strategy/form_strategy.h"

#include <QKeyEvent>
#include <algorithm>

#include "text/qt_text.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

const QColor kLightLand(0xF4, 0xEF, 0xE1);
constexpr qreal kTextHeight = 0.36;
constexpr qreal kMarkHeight = 0.7;  // of the "*", which is small in its line
constexpr int kSmallestText = 7;
constexpr int kLargestText = 26;
constexpr qreal kTextInset = 2;
constexpr qreal kCursorWidth = 0.07;
const QString kHidden = u"*"_s;

// One size for the names of all ranks: that in which the longest fits.
QFont RankFont(QFont font, const QSizeF& cell) {
  font.setPixelSize(std::clamp(static_cast<int>(cell.height() * kTextHeight), kSmallestText, kLargestText));
  const QFontMetricsF metrics(font);
  qreal widest = 0;
  for (const Rank rank : kArmyRanks) {
    widest = std::max(widest, metrics.horizontalAdvance(ToQString(RankName(rank))));
  }
  const qreal room = cell.width() - 2 * kTextInset;
  if (widest > room) font.setPixelSize(std::max(kSmallestText, static_cast<int>(font.pixelSize() * room / widest)));
  return font;
}

// `base` with some of `tint` in it.
QColor Tinted(const QColor& base, const QColor& tint, qreal part) {
  const auto mixed = [part](int from, int to) { return static_cast<int>(from + (to - from) * part); };
  return {mixed(base.red(), tint.red()), mixed(base.green(), tint.green()), mixed(base.blue(), tint.blue())};
}

}  // namespace

void StrategyPainter::Paint(QPainter& painter, const QRectF& area, const CellLook& look) const {
  if (look.Header) {
    PaintHeader(painter, area, look);
    return;
  }
  const QColor highlight = look.Palette.color(QPalette::Highlight);
  QColor ground = look.BackColour.isValid() ? look.BackColour : kLightLand;
  if (look.Current) ground = Tinted(ground, highlight, 0.25);
  if (look.Marks.testFlag(Mark::Selected)) ground = Tinted(ground, Qt::yellow, 0.7);
  painter.fillRect(area, ground);
  if (look.Current) {
    // A rim of the highlight colour, so that the colour of the army on the cell can still be told.
    const qreal width = std::max(2.0, area.height() * kCursorWidth);
    painter.setPen(QPen(highlight, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(area.adjusted(width / 2, width / 2, -width / 2, -width / 2));
    // A light line inside it sets it off from water.
    painter.setPen(QPen(Qt::white, 1));
    painter.drawRect(area.adjusted(width, width, -width - 1, -width - 1));
  }
  if (look.Text.isEmpty()) return;
  QFont font = RankFont(painter.font(), look.CellSize);
  if (look.Text == kHidden) font.setPixelSize(static_cast<int>(area.height() * kMarkHeight));
  painter.setFont(font);
  painter.setPen(look.ForeColour);
  QRectF place = area;
  // The star hangs at the top of its line.
  if (look.Text == kHidden) place.moveTop(area.top() + QFontMetricsF(font).ascent() / 6);
  painter.drawText(place, Qt::AlignCenter, look.Text);
}

FormStrategy::FormStrategy(const StrategyGame& game, ProcessValues& values, std::unique_ptr<Connection> connection)
    : GameWindow(game.Window, std::move(connection)),
      flow_(game, MakeSeams(values), SeedOfWindow()),
      board_(std::make_unique<BoardView>(flow_.FG1(), painter_)) {
  connect(board_.get(), &BoardView::CellClicked, &flow_, &StrategyFlow::BoardClicked);
  connect(board_.get(), &BoardView::PointerMoved, &flow_, &StrategyFlow::PointerMoved);
  Attach(flow_, *board_);
}

void FormStrategy::keyPressEvent(QKeyEvent* event) {
  // Keys come here from whatever has the focus and no use for them.
  if (!board_->isVisible()) return;
  if (event->key() == Qt::Key_F1) board_->setFocus();
  if (!event->isAutoRepeat()) flow_.KeyPressed(event->key());
}

}  // namespace brontavia
