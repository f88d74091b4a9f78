// How the rows of the list of games look: a picture of the game's board, its name, and an arrow at the end of the
// chosen one. The index of a row is the game's index in Games().
#pragma once

#include <QPixmap>
#include <QStyledItemDelegate>
#include <vector>

namespace brontavia {

class GameDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  explicit GameDelegate(QObject* parent);

  // The least of all rows' heights, which gives all pictures one size.
  void SetRowHeight(int height) { row_height_ = height; }

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  // Painted once for each size, scale and palette.
  [[nodiscard]] const QPixmap& Picture(int game, int side, qreal scale, const QPalette& palette) const;

  struct Kept {
    QPixmap Picture;
    qint64 Palette = 0;
  };
  int row_height_ = 0;
  mutable std::vector<Kept> kept_;
};

}  // namespace brontavia
