// The game selection window.
#pragma once

#include <QWidget>

class QListWidget;

namespace brontavia {

class Form2 : public QWidget {
  Q_OBJECT

 public:
  Form2();

  bool eventFilter(QObject* watched, QEvent* event) override;

 signals:
  // `index` is 0..4, the position in List1; `name` the entry's text.
  void GameChosen(int index, const QString& name);
  // "SALIR", or the close box.
  void LeaveRequested();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void ChooseSelected();

  QListWidget* list1_;
};

}  // namespace brontavia
