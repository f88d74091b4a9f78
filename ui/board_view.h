// A board on screen: one focusable widget that draws its model, keeps its proportions and moves the model's current
// cell by mouse and arrow keys. To a screen reader it is a group of cells (ui/board_accessible.h).
#pragma once

#include <QMargins>
#include <QRegion>
#include <QWidget>
#include <optional>
#include <vector>

#include "seams/board_model.h"
#include "ui/cell_painter.h"

namespace brontavia {

class BoardView : public QWidget {
  Q_OBJECT

 public:
  // The smaller side of a cell does not shrink below 14 pixels. Model and painter outlive the view.
  BoardView(BoardModel& model, const CellPainter& painter, QWidget* parent = nullptr);

  [[nodiscard]] BoardModel& Model() const { return model_; }
  // In the view's own pixels. CellRect throws std::out_of_range for a cell outside the board; CellAt gives nothing for
  // a place beside the cells.
  [[nodiscard]] QRect CellRect(CellIndex cell) const;
  [[nodiscard]] std::optional<CellIndex> CellAt(QPoint position) const;

  // The size of a cell that is no header where the view has `room`, and the smallest view with such cells. All cells
  // have the same whole number of pixels.
  [[nodiscard]] QSize CellSizeIn(QSize room) const;
  [[nodiscard]] QSize SizeIn(QSize room) const;
  // The smallest view whose smaller cell side is `pixels`.
  [[nodiscard]] QSize SizeWithCells(int pixels) const;

  // How far outside the cells the ring stands that shows the focus, in pixels. Headers stand inside the ring.
  void SetRingGap(int pixels);

  // The current cell looks like any other while the board does not have the focus.
  void ShowCursorOnlyWithFocus() { cursor_needs_focus_ = true; }

  // Makes `cell`, which lies on the board, current and clicks it. A header takes no clicks.
  void Click(CellIndex cell);

  [[nodiscard]] QSize sizeHint() const override;
  // The cursor of the board is its current cell.
  [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

 signals:
  void CellClicked(brontavia::CellIndex cell);
  // The pointer has moved over a cell, headers included.
  void PointerMoved(brontavia::CellIndex cell);
  // A screen reader says `name`, that of the current cell, unasked: now, or when a box gives the
  // focus back to the board.
  void CellSpoken(const QString& name);
  // A key (Qt::Key) that the board itself has no use for.
  void KeyPressed(int key);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  // In pixels.
  struct Sizes {
    QSize Cell;
    int Header = 0;
  };
  [[nodiscard]] Sizes SizesAt(int cell_width) const;
  [[nodiscard]] Sizes SizesIn(QSize room) const;
  // Of all cells and headers, without what surrounds them.
  [[nodiscard]] QSize BoardSize(const Sizes& sizes) const;
  [[nodiscard]] QMargins RingMargins() const;
  [[nodiscard]] QMargins Surroundings() const;
  [[nodiscard]] QRect BoardRect() const;
  void Arrange();
  [[nodiscard]] std::optional<CellIndex> CellAfterKey(int key) const;
  void PaintCell(QPainter& painter, CellIndex cell) const;
  void RepaintOver();
  void CurrentCellMoved(CellIndex previous, CellIndex current);
  void CellsChanged(const QModelIndex& first, const QModelIndex& last);
  // Once the handler has returned or waits, so that what is told is true then.
  void TellSoon();
  void Tell();

  BoardModel& model_;
  const CellPainter& painter_;
  int ring_gap_ = 3;
  QSize cell_size_;
  // One more than there are columns or rows.
  std::vector<int> column_edges_;
  std::vector<int> row_edges_;
  QRegion over_;  // where the painter paints over the cells
  std::optional<CellIndex> pressed_;
  bool cursor_needs_focus_ = false;
  bool telling_ = false;
  bool focus_to_tell_ = false;
};

}  // namespace brontavia
