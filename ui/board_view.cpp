#include "ui/board_view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>

#include "ui/board_accessible.h"

namespace brontavia {
namespace {

const QColor kLineColour(128, 128, 128, 190);  // between light cells as well as between dark ones
constexpr int kMargin = 4;                     // around the cells, for the focus frame
constexpr int kPreferredScale = 2;
constexpr int kTwipsPerPixel = 15;

QSize SizeInTwips(const BoardShape& shape) {
  const int headers = shape.HeaderCells * shape.HeaderSize;
  return {headers + (shape.Columns - shape.HeaderCells) * shape.CellWidth,
          headers + (shape.Rows - shape.HeaderCells) * shape.CellHeight};
}

QColor ColourOf(ColourValue value) {
  if (value == kDefaultColour) return {};
  return {value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF};
}

}  // namespace

BoardView::BoardView(BoardModel& model, const CellPainter& painter, QWidget* parent)
    : QWidget(parent), model_(model), painter_(painter) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  const QSize smallest = SizeInTwips(model_.Shape()) / kTwipsPerPixel;
  setMinimumSize(smallest.grownBy(QMargins(kMargin, kMargin, kMargin, kMargin)));
  Arrange();
  connect(&model_, &BoardModel::CurrentCellChanged, this, &BoardView::CurrentCellMoved);
  connect(&model_, &BoardModel::dataChanged, this, &BoardView::CellsChanged);
}

// ---- Geometry ----

QSize BoardView::sizeHint() const { return minimumSize() * kPreferredScale; }

QRect BoardView::BoardRect() const {
  const QSize room = size().shrunkBy(QMargins(kMargin, kMargin, kMargin, kMargin));
  QRect board({}, SizeInTwips(model_.Shape()).scaled(room, Qt::KeepAspectRatio));
  board.moveCenter(rect().center());
  return board;
}

QSizeF BoardView::CellSize() const {
  const BoardShape& shape = model_.Shape();
  const qreal scale = static_cast<qreal>(BoardRect().width()) / SizeInTwips(shape).width();
  return QSizeF(shape.CellWidth, shape.CellHeight) * scale;
}

void BoardView::Arrange() {
  const BoardShape& shape = model_.Shape();
  const QRect board = BoardRect();
  column_edges_ = Edges(board.left(), board.width(), shape.Columns, shape.CellWidth);
  row_edges_ = Edges(board.top(), board.height(), shape.Rows, shape.CellHeight);
}

std::vector<int> BoardView::Edges(int start, int length, int count, int cell_size) const {
  const BoardShape& shape = model_.Shape();
  const auto size_of = [&](int cells) {
    const int headers = std::min(cells, shape.HeaderCells);
    return headers * shape.HeaderSize + (cells - headers) * cell_size;
  };
  std::vector<int> edges;
  for (int cells = 0; cells <= count; ++cells) edges.push_back(start + length * size_of(cells) / size_of(count));
  return edges;
}

void BoardView::resizeEvent(QResizeEvent* /*event*/) { Arrange(); }

QRect BoardView::CellRect(CellIndex cell) const {
  const auto column = static_cast<std::size_t>(cell.Column);
  const auto row = static_cast<std::size_t>(cell.Row);
  return {QPoint(column_edges_.at(column), row_edges_.at(row)),
          QPoint(column_edges_.at(column + 1) - 1, row_edges_.at(row + 1) - 1)};
}

std::optional<CellIndex> BoardView::CellAt(QPoint position) const {
  for (int row = 0; row < model_.rowCount(); ++row) {
    for (int column = 0; column < model_.columnCount(); ++column) {
      if (CellRect({row, column}).contains(position)) return CellIndex{row, column};
    }
  }
  return std::nullopt;
}

QVariant BoardView::inputMethodQuery(Qt::InputMethodQuery query) const {
  if (query == Qt::ImCursorRectangle) return CellRect(model_.CurrentCell());
  return QWidget::inputMethodQuery(query);
}

// ---- Drawing ----

void BoardView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  for (int row = 0; row < model_.rowCount(); ++row) {
    for (int column = 0; column < model_.columnCount(); ++column) {
      const CellIndex cell{row, column};
      painter_.Paint(painter, CellRect(cell),
                     {.Index = cell,
                      .Text = model_.Cell(cell).Text,
                      .ForeColour = ColourOf(model_.Cell(cell).ForeColour),
                      .BackColour = ColourOf(model_.Cell(cell).BackColour),
                      .Marks = model_.Cell(cell).Marks,
                      .Drawing = model_.Cell(cell).Drawing,
                      .Current = cell == model_.CurrentCell() && (hasFocus() || !cursor_needs_focus_),
                      .Header = model_.IsHeader(cell),
                      .Palette = palette(),
                      .CellSize = CellSize()});
    }
  }
  DrawFrame(painter);
}

void BoardView::DrawFrame(QPainter& painter) const {
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(kLineColour, 1));
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
  if (model_.IsHeader(cell)) return;
  model_.SetCurrentCell(cell);
  emit CellClicked(cell);
}

void BoardView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  pressed_ = CellAt(event->position().toPoint());
  if (pressed_ && !model_.IsHeader(*pressed_)) model_.SetCurrentCell(*pressed_);
}

void BoardView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const auto released = CellAt(event->position().toPoint());
  const auto pressed = std::exchange(pressed_, std::nullopt);
  if (released && released == pressed) Click(*released);
}

void BoardView::mouseMoveEvent(QMouseEvent* event) {
  if (const auto cell = CellAt(event->position().toPoint())) emit PointerMoved(*cell);
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
    return;
  }
  emit KeyPressed(event->key());
  QWidget::keyPressEvent(event);
}

std::optional<CellIndex> BoardView::CellAfterKey(int key) const {
  CellIndex cell = model_.CurrentCell();
  const int first = model_.Shape().HeaderCells;
  const int last_row = model_.rowCount() - 1;
  const int last_column = model_.columnCount() - 1;
  switch (key) {
    case Qt::Key_Up:
      cell.Row = std::max(cell.Row - 1, first);
      return cell;
    case Qt::Key_Down:
      cell.Row = std::min(cell.Row + 1, last_row);
      return cell;
    case Qt::Key_Left:
      cell.Column = std::max(cell.Column - 1, first);
      return cell;
    case Qt::Key_Right:
      cell.Column = std::min(cell.Column + 1, last_column);
      return cell;
    case Qt::Key_Home:
      cell.Column = first;
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
