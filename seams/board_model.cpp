#include "seams/board_model.h"

#include <stdexcept>
#include <utility>

namespace brontavia {

BoardModel::BoardModel(const BoardShape& shape, Describer describe, QObject* parent)
    : QAbstractTableModel(parent),
      shape_(shape),
      describe_(std::move(describe)),
      cells_(static_cast<std::size_t>(shape.Rows) * static_cast<std::size_t>(shape.Columns)),
      current_{.Row = shape.HeaderCells, .Column = shape.HeaderCells} {}

int BoardModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : shape_.Rows; }

int BoardModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : shape_.Columns; }

QVariant BoardModel::data(const QModelIndex& index, int role) const {
  const CellIndex cell{index.row(), index.column()};
  if (!index.isValid() || !Holds(cell)) return {};
  switch (role) {
    case Qt::DisplayRole:
      return Cell(cell).Text;
    case Qt::AccessibleTextRole:
      return Description(cell);
    case ForeColourRole:
      return Cell(cell).ForeColour;
    case BackColourRole:
      return Cell(cell).BackColour;
    default:
      return {};
  }
}

const CellContent& BoardModel::Cell(CellIndex cell) const { return cells_[Position(cell)]; }

void BoardModel::SetCell(CellIndex cell, const CellContent& content) {
  CellContent& held = cells_[Position(cell)];
  if (held == content) return;
  held = content;
  const QModelIndex changed = index(cell.Row, cell.Column);
  emit dataChanged(changed, changed);
}

void BoardModel::SetCurrentCell(CellIndex cell) {
  if (!Holds(cell) || IsHeader(cell)) throw std::out_of_range("current cell outside the board");
  if (cell == current_) return;
  const CellIndex previous = std::exchange(current_, cell);
  emit CurrentCellChanged(previous, current_);
}

void BoardModel::SetWaitsForClick(bool waits) {
  if (waits == waits_for_click_) return;
  waits_for_click_ = waits;
  emit WaitsForClickChanged();
}

bool BoardModel::Holds(CellIndex cell) const {
  return cell.Row >= 0 && cell.Row < shape_.Rows && cell.Column >= 0 && cell.Column < shape_.Columns;
}

bool BoardModel::IsHeader(CellIndex cell) const {
  return cell.Row < shape_.HeaderCells || cell.Column < shape_.HeaderCells;
}

std::size_t BoardModel::Position(CellIndex cell) const {
  if (!Holds(cell)) throw std::out_of_range("cell outside the board");
  return static_cast<std::size_t>(cell.Row) * static_cast<std::size_t>(shape_.Columns) +
         static_cast<std::size_t>(cell.Column);
}

}  // namespace brontavia
