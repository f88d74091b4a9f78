// An address of this computer, what it is for, and a button that copies it.
#pragma once

#include <QFont>
#include <QTimer>
#include <QWidget>

#include "seams/connection.h"

class QPushButton;

namespace brontavia {

class OneLineLabel;

// For addresses and ports: bold, of fixed width, `factor` times as large as `font`.
QFont NumberFont(const QFont& font, qreal factor);

class AddressRow : public QWidget {
  Q_OBJECT

 public:
  explicit AddressRow(QWidget* parent);

  // One that shows already stays as it is, told as copied or not.
  void Show(const OwnAddress& address);

 private:
  void Copy();
  // "Copiar", or for two seconds after that "Copiada".
  void Caption(const QString& caption);

  OwnAddress shown_;
  OneLineLabel* address_;
  OneLineLabel* kind_;
  QPushButton* copy_;
  QTimer copied_;
};

}  // namespace brontavia
