#include "app/form2.h"

#include <QAccessible>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/games.h"
#include "ui/text_box.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

constexpr QSize kFirstSize(420, 320);
constexpr int kTextLines = 2;
constexpr int kEntrySpacing = 4;

}  // namespace

Form2::Form2() : list1_(new QListWidget) {
  setObjectName(u"Form2"_s);
  setWindowTitle(u"BRONTAVIA"_s);
  auto* text1 = new TextBox(u"Text1"_s, u"Indicaciones"_s);
  text1->SetText(u"Elija a qué juego desea jugar. Los dos jugadores deben escoger el mismo."_s);
  text1->SetMinimumLines(kTextLines);
  text1->setFixedHeight(text1->minimumHeight());
  list1_->setObjectName(u"List1"_s);
  list1_->setAccessibleName(u"Juegos"_s);
  for (const Game& game : Games()) list1_->addItem(game.Window.ListEntry.toString());
  list1_->setCurrentRow(0);
  list1_->setSpacing(kEntrySpacing);
  list1_->installEventFilter(this);
  connect(list1_, &QListWidget::itemDoubleClicked, this, &Form2::ChooseSelected);
  auto* leave = new QPushButton(u"SALIR"_s);
  leave->setObjectName(u"Command1"_s);
  leave->setAutoDefault(true);
  connect(leave, &QPushButton::clicked, this, &Form2::LeaveRequested);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(text1);
  layout->addWidget(list1_, 1);
  layout->addWidget(leave);
  list1_->setFocus();
  resize(kFirstSize);
}

bool Form2::eventFilter(QObject* watched, QEvent* event) {
  if (watched == list1_ && event->type() == QEvent::FocusIn) {
    // A list tells a screen reader of its own focus alone; which game is selected is told after it.
    QMetaObject::invokeMethod(
        list1_,
        [list = list1_] {
          QAccessibleEvent selected(list, QAccessible::Focus);
          selected.setChild(list->currentRow());
          QAccessible::updateAccessibility(&selected);
        },
        Qt::QueuedConnection);
  }
  if (watched != list1_ || event->type() != QEvent::KeyPress) return false;
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
  ChooseSelected();
  return true;
}

void Form2::ChooseSelected() {
  // Not the current entry, which Ctrl and a click or the space bar deselect.
  const QList<QListWidgetItem*> selected = list1_->selectedItems();
  if (!selected.isEmpty()) emit GameChosen(list1_->row(selected.first()), selected.first()->text());
}

void Form2::closeEvent(QCloseEvent* event) {
  event->ignore();
  emit LeaveRequested();
}

}  // namespace brontavia
