#include "games/naval/form_bar.h"

#include <QFontDatabase>
#include <QTextOption>
#include <algorithm>
#include <utility>

#include "ui/text_box.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

constexpr int kShipLines = 9;    // title, headings, seven ships
constexpr int kMostLetters = 2;  // of a letter, a number or a mark; longer texts are words
constexpr qreal kWordHeight = 0.29;
constexpr qreal kLetterHeight = 0.5;
constexpr int kSmallestText = 8;
constexpr int kLargestText = 24;
constexpr qreal kTextInset = 2;

// White has the better contrast on blue, black on red.
constexpr int kDark = 64;

// Black or white, whichever stands out more against `background`.
QColor ReadableOn(const QColor& background) { return qGray(background.rgb()) < kDark ? Qt::white : Qt::black; }

QColor BackgroundOf(const CellLook& look) {
  if (look.Current) return look.Palette.color(QPalette::Highlight);
  if (look.BackColour.isValid()) return look.BackColour;
  return look.Palette.color(look.Header ? QPalette::Button : QPalette::Base);
}

QColor TextColourOf(const CellLook& look) {
  if (look.Current) return look.Palette.color(QPalette::HighlightedText);
  if (look.BackColour.isValid()) return ReadableOn(look.BackColour);
  return look.Palette.color(look.Header ? QPalette::ButtonText : QPalette::Text);
}

// One size for all words and one for all letters, so that no cell stands out by its length.
QFont FontFor(QFont font, const QString& text, const QRectF& area) {
  const qreal part = text.size() > kMostLetters ? kWordHeight : kLetterHeight;
  font.setPixelSize(std::clamp(static_cast<int>(area.height() * part), kSmallestText, kLargestText));
  return font;
}

}  // namespace

void NavalPainter::Paint(QPainter& painter, const QRectF& area, const CellLook& look) const {
  painter.fillRect(area, BackgroundOf(look));
  if (look.Current && look.BackColour.isValid()) {
    // The current cell shows the highlight colours; a rim keeps telling what was fired at it.
    painter.setPen(QPen(look.BackColour, area.width() / 8));
    painter.setBrush(Qt::NoBrush);
    const qreal half = area.width() / 16;
    painter.drawRect(area.adjusted(half, half, -half, -half));
  }
  if (look.Text.isEmpty()) return;
  const QRectF room = area.adjusted(kTextInset, 0, -kTextInset, 0);
  const QFont font = FontFor(painter.font(), look.Text, area);
  painter.setFont(font);
  painter.setPen(TextColourOf(look));
  const QString shown = QFontMetrics(font).elidedText(look.Text, Qt::ElideRight, static_cast<int>(room.width()));
  QTextOption option(look.Header ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter);
  option.setWrapMode(QTextOption::NoWrap);
  painter.drawText(room, shown, option);
}

FormBAR::FormBAR(ProcessValues& values, std::unique_ptr<Connection> connection)
    : GameWindow(kFormBAR, std::move(connection)),
      flow_(MakeSeams(values), SeedOfWindow()),
      board_(std::make_unique<BoardView>(flow_.FG1(), painter_)),
      own_fleet_(std::make_unique<BoardView>(flow_.FG2(), painter_)) {
  own_fleet_->setObjectName(u"FG2"_s);
  own_fleet_->setAccessibleName(u"Flota propia"_s);
  own_fleet_->ShowCursorOnlyWithFocus();  // nothing is chosen there, and it would look like a shot
  TextBox* ships = AddTable(Box::TBBarcos, u"TBBarcos"_s, u"Barcos"_s, kShipLines);
  ships->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  ships->setLineWrapMode(QPlainTextEdit::NoWrap);
  // All of it always fits. Bars would come for the empty line at the end, and for the width of larger writing.
  ships->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  ships->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  AddSmallBoard(*own_fleet_);
  connect(board_.get(), &BoardView::CellClicked, &flow_, &NavalFlow::BoardClicked);
  connect(board_.get(), &BoardView::KeyPressed, &flow_, &NavalFlow::BoardKeyPressed);
  Attach(flow_, *board_);
}

}  // namespace brontavia
