// What one board shows: the text and colours of its cells and the current cell. The flow writes it, the window's view
// shows it, tests read it; nothing else keeps a copy of what is displayed.
#pragma once

#include <QAbstractTableModel>
#include <cstdint>
#include <functional>
#include <vector>

namespace brontavia {

// Row and column of a cell on screen, both counted from 0 at the top left.
struct CellIndex {
  int Row = 0;
  int Column = 0;
  friend bool operator==(const CellIndex&, const CellIndex&) = default;
};

// A colour as 0x00BBGGRR. kDefaultColour stands for the board's default, not for black.
using ColourValue = std::int32_t;
inline constexpr ColourValue kDefaultColour = 0;

class BoardModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Role { ForeColourRole = Qt::UserRole };

  // Given a cell, tells in words where it is and what is on it.
  using Describer = std::function<QString(CellIndex)>;

  BoardModel(int rows, int columns, Describer describe, QObject* parent = nullptr);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;

  // DisplayRole: the cell's text. ForeColourRole: its text's ColourValue. AccessibleTextRole: its description.
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  // The cell must lie on the board; these throw std::out_of_range otherwise.
  [[nodiscard]] const QString& Text(CellIndex cell) const;
  [[nodiscard]] ColourValue ForeColour(CellIndex cell) const;
  void SetCell(CellIndex cell, const QString& text, ColourValue fore_colour);
  void SetCurrentCell(CellIndex cell);

  [[nodiscard]] bool Holds(CellIndex cell) const;
  [[nodiscard]] QString Description(CellIndex cell) const { return describe_(cell); }
  [[nodiscard]] CellIndex CurrentCell() const { return current_; }

 signals:
  void CurrentCellChanged(brontavia::CellIndex previous, brontavia::CellIndex current);

 private:
  struct Content {
    QString Text;
    ColourValue ForeColour = kDefaultColour;
  };

  [[nodiscard]] std::size_t Position(CellIndex cell) const;

  int rows_;
  int columns_;
  Describer describe_;
  std::vector<Content> cells_;
  CellIndex current_;
};

}  // namespace brontavia
