#include "ui/board_view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>

#include "ui/board_accessible.h"

namespace brontavia {
namespace {

constexpr int kMargin = 4;  // around the cells, for the focus frame
constexpr int kPreferredScale = 2;

QColor ColourOf(ColourValue value) {
  if (value == kDefaultColour) return {};
  return {value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF};
}

}  // namespace

BoardView::BoardView(BoardModel& model, const CellPainter& painter, QSize smallest, QWidget* parent)
    : QWidget(parent), model_(model), painter_(painter) {
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setMinimumSize(smallest.grownBy(QMargins(kMargin, kMargin, kMargin, kMargin)));
  connect(&model_, &BoardModel::CurrentCellChanged, this, &BoardView::CurrentCellMoved);
  connect(&model_, &BoardModel::dataChanged, this, &BoardView::CellsChanged);
}

// ---- Geometry ----

QSize BoardView::sizeHint() const { return minimumSize() * kPreferredScale; }

QRect BoardView::BoardRect() const {
  const int side = std::min(width(), height()) - 2 * kMargin;
  return {(width() - side) / 2, (height() - side) / 2, side, side};
}

QRect BoardView::CellRect(CellIndex cell) const {
  const QRect board = BoardRect();
  const auto edge = [](int length, int index, int count) { return length * index / count; };
  const int rows = model_.rowCount();
  const int columns = model_.columnCount();
  const QPoint top_left(edge(board.width(), cell.Column, columns), edge(board.height(), cell.Row, rows));
  const QPoint past_end(edge(board.width(), cell.Column + 1, columns), edge(board.height(), cell.Row + 1, rows));
  return QRect(top_left, past_end - QPoint(1, 1)).translated(board.topLeft());
}

std::optional<CellIndex> BoardView::CellAt(QPoint position) const {
  const QRect board = BoardRect();
  if (!board.contains(position)) return std::nullopt;
  for (int row = 0; row < model_.rowCount(); ++row) {
    for (int column = 0; column < model_.columnCount(); ++column) {
      if (CellRect({row, column}).contains(position)) return CellIndex{row, column};
    }
  }
  return std::nullopt;
}

// ---- Drawing ----

void BoardView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  for (int row = 0; row < model_.rowCount(); ++row) {
    for (int column = 0; column < model_.columnCount(); ++column) {
      const CellIndex cell{row, column};
      painter_.Paint(painter, CellRect(cell),
                     {.Text = model_.Text(cell),
                      .ForeColour = ColourOf(model_.ForeColour(cell)),
                      .Current = cell == model_.CurrentCell(),
                      .Palette = palette()});
    }
  }
  DrawFrame(painter);
}

void BoardView::DrawFrame(QPainter& painter) const {
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setBrush(Qt::NoBrush);
  QColor lines = palette().color(QPalette::Text);
  lines.setAlphaF(0.45F);
  painter.setPen(QPen(lines, 1));
  for (int row = 0; row < model_.rowCount(); ++row) {
    for (int column = 0; column < model_.columnCount(); ++column) {
      painter.drawRect(CellRect({row, column}).adjusted(-1, -1, 0, 0));
    }
  }
  if (!hasFocus()) return;
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
  painter.drawRect(BoardRect().adjusted(-3, -3, 3, 3));
}

// ---- Mouse and keys ----

void BoardView::Click(CellIndex cell) {
  model_.SetCurrentCell(cell);
  emit CellClicked(cell);
}

void BoardView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  pressed_ = CellAt(event->position().toPoint());
  if (pressed_) model_.SetCurrentCell(*pressed_);
}

void BoardView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const auto released = CellAt(event->position().toPoint());
  const auto pressed = std::exchange(pressed_, std::nullopt);
  if (released && released == pressed) Click(*released);
}

void BoardView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (!event->isAutoRepeat()) Click(model_.CurrentCell());
      return;
    default:
      break;
  }
  if (const auto cell = CellAfterKey(event->key())) {
    model_.SetCurrentCell(*cell);
  } else {
    QWidget::keyPressEvent(event);
  }
}

std::optional<CellIndex> BoardView::CellAfterKey(int key) const {
  CellIndex cell = model_.CurrentCell();
  const int last_row = model_.rowCount() - 1;
  const int last_column = model_.columnCount() - 1;
  switch (key) {
    case Qt::Key_Up:
      cell.Row = std::max(cell.Row - 1, 0);
      return cell;
    case Qt::Key_Down:
      cell.Row = std::min(cell.Row + 1, last_row);
      return cell;
    case Qt::Key_Left:
      cell.Column = std::max(cell.Column - 1, 0);
      return cell;
    case Qt::Key_Right:
      cell.Column = std::min(cell.Column + 1, last_column);
      return cell;
    case Qt::Key_Home:
      cell.Column = 0;
      return cell;
    case Qt::Key_End:
      cell.Column = last_column;
      return cell;
    default:
      return std::nullopt;
  }
}

void BoardView::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
  // After the focus of the board itself has been told, so that the way in speaks the current cell.
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (hasFocus()) TellFocus(*this);
      },
      Qt::QueuedConnection);
}

void BoardView::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}

// ---- What the model tells ----

void BoardView::CurrentCellMoved(CellIndex previous, CellIndex current) {
  update(CellRect(previous));
  update(CellRect(current));
  if (hasFocus()) TellFocus(*this);
}

void BoardView::CellsChanged(const QModelIndex& first, const QModelIndex& last) {
  for (int row = first.row(); row <= last.row(); ++row) {
    for (int column = first.column(); column <= last.column(); ++column) {
      update(CellRect({row, column}));
      TellChange(*this, {row, column});
    }
  }
}

}  // namespace brontavia
