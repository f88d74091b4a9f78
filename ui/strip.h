// The strip above a board: a plate for each player, the own one left. It tells whose turn it is, who is ready and who
// has won; a screen reader finds the same in one sentence and hears nothing of it unasked.
#pragma once

#include <QWidget>

#include "seams/scoreboard.h"

class QAccessibleInterface;

namespace brontavia {

class Strip : public QWidget {
  Q_OBJECT

 public:
  explicit Strip(QWidget* parent = nullptr);

  // Repaints the plates that change. Of names that no screen can show, what can be shown.
  void Show(const Scoreboard& scoreboard);

  // What a screen reader reads; empty until a name is known.
  [[nodiscard]] QString Sentence() const { return SentenceOf(scoreboard_); }

  // Plates are lower in narrow windows. The height has room for the point of the plate whose player is to move.
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  // Of the own one, or of the other's.
  [[nodiscard]] QRect Plate(bool own) const;
  // The plate and the point below it.
  [[nodiscard]] QRect Touched(bool own) const;

  Scoreboard scoreboard_;
};

// The strip as a screen reader meets it: a read-only text.
QAccessibleInterface* MakeAccessible(Strip& strip);

}  // namespace brontavia
