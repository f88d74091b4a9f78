#include "games/three_in_row/form_ter.h"

#include <QApplication>
#include <QKeyEvent>
#include <utility>

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

void DrawPiece(QPainter& painter, const QRectF& area, char16_t symbol, const QColor& colour, qreal width) {
  painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap));
  if (symbol == ThreeInRowBoard::PlayerSymbols.Server) {
    painter.drawLine(area.topLeft(), area.bottomRight());
    painter.drawLine(area.topRight(), area.bottomLeft());
  } else {
    painter.drawEllipse(area);
  }
}

// Keys that keep their usual meaning wherever the focus is: moving the focus, copying, and modifiers on their own.
bool KeepsItsMeaning(const QKeyEvent& key) {
  if (key.matches(QKeySequence::Copy)) return true;
  switch (key.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Control:
    case Qt::Key_Shift:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
      return true;
    default:
      return false;
  }
}

}  // namespace

void TerPainter::Paint(QPainter& painter, const QRectF& area, const CellLook& look) const {
  const QPalette& palette = look.Palette;
  painter.fillRect(area, palette.color(look.Current ? QPalette::Highlight : QPalette::Base));
  painter.setBrush(Qt::NoBrush);
  const char16_t symbol = look.Text.isEmpty() ? ThreeInRowBoard::kEmpty : look.Text.front().unicode();
  const QColor highlighted = palette.color(QPalette::HighlightedText);
  if (symbol == ThreeInRowBoard::kEmpty) {
    QFont font = painter.font();
    font.setPixelSize(qMax(8, static_cast<int>(area.height() / 3)));
    painter.setFont(font);
    painter.setPen(look.Current ? highlighted : palette.color(QPalette::Text));
    painter.drawText(area, Qt::AlignCenter, look.Text);
    return;
  }
  const qreal inset = area.width() * 0.24;
  const QRectF piece = area.adjusted(inset, inset, -inset, -inset);
  const qreal width = area.width() * 0.09;
  if (look.Current) {
    DrawPiece(painter, piece, symbol, highlighted, width);
    return;
  }
  // A darker rim keeps the bright colours legible on a light board.
  DrawPiece(painter, piece, symbol, look.ForeColour.darker(220), width * 1.4);
  DrawPiece(painter, piece, symbol, look.ForeColour, width);
}

FormTER::FormTER(ProcessValues& values, std::unique_ptr<Connection> connection)
    : GameWindow(kFormTER, std::move(connection)),
      flow_(MakeSeams(values), SeedOfWindow()),
      board_(std::make_unique<BoardView>(flow_.FG1(), painter_)) {
  connect(board_.get(), &BoardView::CellClicked, &flow_, &ThreeInRowFlow::BoardClicked);
  Attach(flow_, *board_);
  qApp->installEventFilter(this);
}

bool FormTER::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto* widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr || widget->window() != this || !board_->isEnabled() || !board_->isVisible()) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  if (key->key() == Qt::Key_F1) {
    board_->setFocus();
    return true;
  }
  if (widget == board_.get() || KeepsItsMeaning(*key)) return false;
  board_->setFocus();
  return true;
}

}  // namespace brontavia
