// The game selection window.
#pragma once

#include <QWidget>

#include "ui/announcer.h"

class QListWidget;
class QPushButton;

namespace brontavia {

class GameDelegate;
class GuideBox;

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
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void ChooseSelected();
  // Gives all rows of the list the same part of its height.
  void ShareHeight();

  GuideBox* text1_;
  QListWidget* list1_;
  GameDelegate* rows_;
  QPushButton* leave_;
  Announcer announcer_;
};

}  // namespace brontavia
