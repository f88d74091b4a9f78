#include "ui/board_view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <algorithm>
#include <utility>

#include "ui/board_accessible.h"
#include "ui/look.h"

namespace brontavia {
namespace {

constexpr int kSmallestCell = 14;
constexpr int kPreferredCell = 40;
constexpr int kRingWidth = 2;  // what the ring needs beyond its gap, on each side
constexpr qreal kRingRadius = look::kPlateRadius;

// Edges of the rows or columns, from `start` on.
std::vector<int> EdgesOf(int start, int count, int headers, int header_size, int cell_size) {
  std::vector<int> edges{start};
  for (int cell = 0; cell < count; ++cell) edges.push_back(edges.back() + (cell < headers ? header_size : cell_size));
  return edges;
}

}  // namespace

BoardView::BoardView(BoardModel& model, const CellPainter& painter, QWidget* parent)
    : QWidget(parent), model_(model), painter_(painter) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  SetRingGap(ring_gap_);
  connect(&model_, &BoardModel::CurrentCellChanged, this, &BoardView::CurrentCellMoved);
  connect(&model_, &BoardModel::dataChanged, this, &BoardView::CellsChanged);
  connect(&model_, &BoardModel::WaitsForClickChanged, this, qOverload<>(&BoardView::update));
}

// ---- Geometry ----

BoardView::Sizes BoardView::SizesAt(int cell_width) const {
  const BoardShape& shape = model_.Shape();
  return {.Cell = {cell_width, cell_width * shape.CellHeight / shape.CellWidth},
          .Header = cell_width * shape.HeaderSize / shape.CellWidth};
}

BoardView::Sizes BoardView::SizesIn(QSize room) const {
  const QSize inside = room.shrunkBy(Surroundings());
  int cell_width = inside.width() / (model_.columnCount() - model_.Shape().HeaderCells);
  const auto fits = [&](const QSize& board) {
    return board.width() <= inside.width() && board.height() <= inside.height();
  };
  while (cell_width > 0 && !fits(BoardSize(SizesAt(cell_width)))) --cell_width;
  return SizesAt(cell_width);
}

QSize BoardView::BoardSize(const Sizes& sizes) const {
  const BoardShape& shape = model_.Shape();
  const int headers = shape.HeaderCells * sizes.Header;
  return {headers + (shape.Columns - shape.HeaderCells) * sizes.Cell.width(),
          headers + (shape.Rows - shape.HeaderCells) * sizes.Cell.height()};
}

QSize BoardView::CellSizeIn(QSize room) const { return SizesIn(room).Cell; }

QSize BoardView::SizeIn(QSize room) const { return BoardSize(SizesIn(room)).grownBy(Surroundings()); }

QSize BoardView::SizeWithCells(int pixels) const {
  const BoardShape& shape = model_.Shape();
  const int smaller = std::min(shape.CellWidth, shape.CellHeight);
  const int cell_width = (pixels * shape.CellWidth + smaller - 1) / smaller;
  return BoardSize(SizesAt(cell_width)).grownBy(Surroundings());
}

QSize BoardView::sizeHint() const { return SizeWithCells(kPreferredCell); }

void BoardView::SetRingGap(int pixels) {
  ring_gap_ = pixels;
  setMinimumSize(SizeWithCells(kSmallestCell));
  Arrange();
  update();
}

QMargins BoardView::RingMargins() const {
  const int before = model_.Shape().HeaderCells > 0 ? 0 : ring_gap_;
  return {before, before, ring_gap_, ring_gap_};
}

QMargins BoardView::Surroundings() const {
  return RingMargins() + QMargins(kRingWidth, kRingWidth, kRingWidth, kRingWidth);
}

QRect BoardView::BoardRect() const {
  return {QPoint(column_edges_.front(), row_edges_.front()), QPoint(column_edges_.back() - 1, row_edges_.back() - 1)};
}

void BoardView::Arrange() {
  const BoardShape& shape = model_.Shape();
  const Sizes sizes = SizesIn(size());
  QRect whole({}, BoardSize(sizes).grownBy(Surroundings()));
  whole.moveCenter(rect().center());
  const QPoint start = whole.marginsRemoved(Surroundings()).topLeft();
  cell_size_ = sizes.Cell;
  column_edges_ = EdgesOf(start.x(), shape.Columns, shape.HeaderCells, sizes.Header, sizes.Cell.width());
  row_edges_ = EdgesOf(start.y(), shape.Rows, shape.HeaderCells, sizes.Header, sizes.Cell.height());
  over_ = painter_.OverArea(*this);
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

void BoardView::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  for (int row = 0; row < model_.rowCount(); ++row) {
    for (int column = 0; column < model_.columnCount(); ++column) {
      if (event->region().intersects(CellRect({row, column}))) PaintCell(painter, {row, column});
    }
  }
  painter_.PaintOver(painter, *this);
  if (!hasFocus()) return;
  look::PaintFocusRing(painter, BoardRect().marginsAdded(RingMargins()), look::ColoursOf(palette()), 0, kRingRadius);
}

void BoardView::PaintCell(QPainter& painter, CellIndex cell) const {
  CellLook look = LookOf(cell, model_.Cell(cell), palette(), cell_size_);
  look.Current = cell == model_.CurrentCell() && (hasFocus() || !cursor_needs_focus_);
  look.Header = model_.IsHeader(cell);
  painter_.Paint(painter, CellRect(cell), look);
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
  focus_to_tell_ = true;
  TellSoon();
}

void BoardView::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}

// ---- What the model tells ----

void BoardView::CurrentCellMoved(CellIndex previous, CellIndex current) {
  update(CellRect(previous));
  update(CellRect(current));
  RepaintOver();
  focus_to_tell_ = true;
  TellSoon();
  // While a box has the focus, too: it gives the focus back.
  if (window()->focusWidget() == this) emit CellSpoken(model_.Description(current));
}

void BoardView::CellsChanged(const QModelIndex& first, const QModelIndex& last) {
  for (int row = first.row(); row <= last.row(); ++row) {
    for (int column = first.column(); column <= last.column(); ++column) {
      update(CellRect({row, column}));
    }
  }
  RepaintOver();
  TellSoon();
}

// ---- What a screen reader is told ----

void BoardView::TellSoon() {
  if (telling_) return;
  telling_ = true;
  QMetaObject::invokeMethod(this, &BoardView::Tell, Qt::QueuedConnection);
}

void BoardView::Tell() {
  telling_ = false;
  const bool renamed = TellNames(*this);
  const bool entered = std::exchange(focus_to_tell_, false);
  if (!hasFocus()) return;
  if (entered) TellFocus(*this);
  if (renamed) emit CellSpoken(model_.Description(model_.CurrentCell()));
}

void BoardView::RepaintOver() {
  const QRegion before = std::exchange(over_, painter_.OverArea(*this));
  if (over_ != before) update(before | over_);
}

}  // namespace brontavia
