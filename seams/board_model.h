// What one board shows: the text and colours of its cells and the current cell. The flow writes it, the window's view
// shows it, tests read it; nothing else keeps a copy of what is displayed.
#pragma once

#include <QAbstractTableModel>
#include <QString>
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

// Rows and columns of a board and the proportions of its cells (in twips, 15 to a pixel at the smallest size).
struct BoardShape {
  int Rows = 1;         // headers included
  int Columns = 1;      // headers included
  int HeaderCells = 0;  // 1: the first row and the first column are headers, which are never current
  int CellWidth = 1;
  int CellHeight = 1;
  int HeaderSize = 1;  // height of the header row and width of the header column
};

// What a game marks on a board besides what stands there.
enum class Mark {
  Selected = 1,   // picked up
  LastMove = 2,   // what the opponent did last, or the last shot
  Reachable = 4,  // the piece picked up may go there
  FirstEnd = 8,   // where a ship begins that is being placed
  Lifted = 16,    // a piece has been lifted from there in this move
  ToFill = 32,    // of the own zone, nothing placed there yet
  Fight = 64,     // where a fight has just taken place
  WinningLine = 128
};
Q_DECLARE_FLAGS(Marks, Mark)
Q_DECLARE_OPERATORS_FOR_FLAGS(Marks)

struct CellContent {
  QString Text;
  ColourValue ForeColour = kDefaultColour;
  ColourValue BackColour = kDefaultColour;
  brontavia::Marks Marks;
  // What is drawn there for a person who sees it: a value of the game's own, which its painter knows. 0 for nothing.
  int Drawing = 0;
  friend bool operator==(const CellContent&, const CellContent&) = default;
};

class BoardModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Role { ForeColourRole = Qt::UserRole, BackColourRole };

  // Given a cell, tells in words where it is and what is on it.
  using Describer = std::function<QString(CellIndex)>;

  BoardModel(const BoardShape& shape, Describer describe, QObject* parent = nullptr);

  [[nodiscard]] const BoardShape& Shape() const { return shape_; }
  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;

  // DisplayRole: the cell's text. ForeColourRole, BackColourRole: its ColourValues. AccessibleTextRole: its
  // description.
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  // The cell must lie on the board, and the current one must be no header; these throw std::out_of_range otherwise, and
  // nothing has changed. Signals tell of changes alone: content that the cell holds already, and a cell that is current
  // already, are no news.
  [[nodiscard]] const CellContent& Cell(CellIndex cell) const;
  void SetCell(CellIndex cell, const CellContent& content);
  void SetCurrentCell(CellIndex cell);

  // Whether the cell lies on the board, headers included.
  // Whether the game is over and a click on the board goes on.
  void SetWaitsForClick(bool waits);
  [[nodiscard]] bool WaitsForClick() const { return waits_for_click_; }

  [[nodiscard]] bool Holds(CellIndex cell) const;
  [[nodiscard]] bool IsHeader(CellIndex cell) const;
  [[nodiscard]] QString Description(CellIndex cell) const { return describe_(cell); }
  [[nodiscard]] CellIndex CurrentCell() const { return current_; }

 signals:
  void CurrentCellChanged(brontavia::CellIndex previous, brontavia::CellIndex current);
  void WaitsForClickChanged();

 private:
  [[nodiscard]] std::size_t Position(CellIndex cell) const;

  BoardShape shape_;
  Describer describe_;
  std::vector<CellContent> cells_;
  CellIndex current_;
  bool waits_for_click_ = false;
};

}  // namespace brontavia
