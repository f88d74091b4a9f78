#include "ui/board_model.h"

#include <stdexcept>
#include <utility>

namespace brontavia {

BoardModel::BoardModel(int rows, int columns, Describer describe, QObject* parent)
    : QAbstractTableModel(parent),
      rows_(rows),
      columns_(columns),
      describe_(std::move(describe)),
      cells_(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns)) {}

int BoardModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int BoardModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : columns_; }

QVariant BoardModel::data(const QModelIndex& index, int role) const {
  const CellIndex cell{index.row(), index.column()};
  if (!index.isValid() || !Holds(cell)) return {};
  switch (role) {
    case Qt::DisplayRole:
      return Text(cell);
    case Qt::AccessibleTextRole:
      return Description(cell);
    case ForeColourRole:
      return ForeColour(cell);
    default:
      return {};
  }
}

const QString& BoardModel::Text(CellIndex cell) const { return cells_[Position(cell)].Text; }

ColourValue BoardModel::ForeColour(CellIndex cell) const { return cells_[Position(cell)].ForeColour; }

void BoardModel::SetCell(CellIndex cell, const QString& text, ColourValue fore_colour) {
  Content& content = cells_[Position(cell)];
  if (content.Text == text && content.ForeColour == fore_colour) return;
  content = {text, fore_colour};
  const QModelIndex changed = index(cell.Row, cell.Column);
  emit dataChanged(changed, changed);
}

void BoardModel::SetCurrentCell(CellIndex cell) {
  if (!Holds(cell)) throw std::out_of_range("current cell outside the board");
  if (cell == current_) return;
  const CellIndex previous = std::exchange(current_, cell);
  emit CurrentCellChanged(previous, current_);
}

bool BoardModel::Holds(CellIndex cell) const {
  return cell.Row >= 0 && cell.Row < rows_ && cell.Column >= 0 && cell.Column < columns_;
}

std::size_t BoardModel::Position(CellIndex cell) const {
  if (!Holds(cell)) throw std::out_of_range("cell outside the board");
  return static_cast<std::size_t>(cell.Row) * static_cast<std::size_t>(columns_) +
         static_cast<std::size_t>(cell.Column);
}

}  // namespace brontavia
