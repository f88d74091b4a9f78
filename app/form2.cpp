#include "app/form2.h"

#include <QAccessible>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "app/game_delegate.h"
#include "app/games.h"
#include "ui/full_screen.h"
#include "ui/guide_box.h"
#include "ui/look.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

constexpr QSize kFirstSize(800, 600);
constexpr int kMargin = 24;
constexpr int kGap = 14;
constexpr int kFrame = 3;  // of the list, room for the ring of the focus
constexpr int kSmallestRow = 56;
constexpr int kLeaveHeight = 40;

// Of the user's font.
constexpr qreal kQuestion = 1.15;
constexpr qreal kEntry = 1.4;

// Shows where the focus is as the boxes do.
class GameList : public QListWidget {
 public:
  GameList() {
    setFrameStyle(QFrame::Box);
    setLineWidth(kFrame);
  }

 protected:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::Paint) return QListWidget::event(event);
    const look::Colours colours = look::ColoursOf(palette());
    const qreal width = hasFocus() ? look::kFocusWidth : 1;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(hasFocus() ? colours.Focus : colours.Line, width));
    painter.setBrush(colours.Base);
    painter.drawRoundedRect(QRectF(rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2), look::kBoxRadius,
                            look::kBoxRadius);
    return true;
  }

  void focusInEvent(QFocusEvent* event) override {
    QListWidget::focusInEvent(event);
    update();
  }

  void focusOutEvent(QFocusEvent* event) override {
    QListWidget::focusOutEvent(event);
    update();
  }
};

}  // namespace

Form2::Form2()
    : text1_(new GuideBox(u"Text1"_s, u"Indicaciones"_s, kQuestion)),
      list1_(new GameList),
      rows_(new GameDelegate(list1_)),
      leave_(new QPushButton(u"SALIR"_s)),
      announcer_(*this) {
  setObjectName(u"Form2"_s);
  setWindowTitle(u"BRONTAVIA"_s);
  text1_->SetText(u"Elija a qué juego desea jugar. Los dos jugadores deben escoger el mismo."_s);
  list1_->setObjectName(u"List1"_s);
  list1_->setAccessibleName(u"Juegos"_s);
  list1_->setFont(look::Scaled(font(), kEntry));
  list1_->setItemDelegate(rows_);
  list1_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  for (const Game& game : Games()) list1_->addItem(game.Window.ListEntry.toString());
  list1_->setCurrentRow(0);
  list1_->installEventFilter(this);
  list1_->viewport()->installEventFilter(this);
  connect(list1_, &QListWidget::itemDoubleClicked, this, &Form2::ChooseSelected);
  leave_->setObjectName(u"Command1"_s);
  leave_->setAutoDefault(true);
  connect(leave_, &QPushButton::clicked, this, &Form2::LeaveRequested);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->setSpacing(kGap);
  layout->addWidget(text1_);
  layout->addWidget(list1_, 1);
  layout->addWidget(leave_);
  leave_->setMinimumHeight(kLeaveHeight);
  list1_->setFocus();
  setMinimumSize(look::SmallestWindow(font()));
  LetF11FillTheScreen(*this);
  resize(kFirstSize);
}

void Form2::resizeEvent(QResizeEvent* /*event*/) {
  text1_->setFixedHeight(text1_->heightForWidth(width() - 2 * kMargin));
}

void Form2::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!event->spontaneous()) announcer_.AnnounceOnArrival(text1_->toPlainText());
}

void Form2::ShareHeight() {
  const int room = list1_->viewport()->height();
  const int rows = list1_->count();
  rows_->SetRowHeight(std::max(room / rows, kSmallestRow));
  for (int row = 0; row < rows; ++row) {
    const int height = room * (row + 1) / rows - room * row / rows;
    list1_->item(row)->setSizeHint({0, std::max(height, kSmallestRow)});
  }
}

bool Form2::eventFilter(QObject* watched, QEvent* event) {
  if (watched == list1_->viewport() && event->type() == QEvent::Resize) ShareHeight();
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
