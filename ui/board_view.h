// A board on screen: one focusable widget that draws its model, keeps it square and moves the model's current cell by
// mouse and arrow keys. To a screen reader it is a group of cells (ui/board_accessible.h).
#pragma once

#include <QWidget>
#include <optional>

#include "ui/board_model.h"
#include "ui/cell_painter.h"

namespace brontavia {

class BoardView : public QWidget {
  Q_OBJECT

 public:
  // `smallest` is the size in pixels below which the board does not shrink. Model and painter outlive the view.
  BoardView(BoardModel& model, const CellPainter& painter, QSize smallest, QWidget* parent = nullptr);

  [[nodiscard]] BoardModel& Model() const { return model_; }
  [[nodiscard]] QRect CellRect(CellIndex cell) const;
  [[nodiscard]] std::optional<CellIndex> CellAt(QPoint position) const;

  // Makes `cell` current and clicks it.
  void Click(CellIndex cell);

  [[nodiscard]] QSize sizeHint() const override;

 signals:
  void CellClicked(brontavia::CellIndex cell);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  [[nodiscard]] QRect BoardRect() const;
  [[nodiscard]] std::optional<CellIndex> CellAfterKey(int key) const;
  void DrawFrame(QPainter& painter) const;
  void CurrentCellMoved(CellIndex previous, CellIndex current);
  void CellsChanged(const QModelIndex& first, const QModelIndex& last);

  BoardModel& model_;
  const CellPainter& painter_;
  std::optional<CellIndex> pressed_;
};

}  // namespace brontavia
