#include "ui/board_accessible.h"

#include <QAccessibleWidget>
#include <QWindow>
#include <vector>

#include "ui/announcer.h"
#include "ui/board_view.h"
#include "ui/strip.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

class CellAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  CellAccessible(BoardView& board, CellIndex cell) : board_(&board), cell_(cell) {}

  [[nodiscard]] bool isValid() const override { return true; }
  [[nodiscard]] QObject* object() const override { return nullptr; }
  [[nodiscard]] QWindow* window() const override { return parent()->window(); }
  [[nodiscard]] QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(board_); }
  [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  [[nodiscard]] int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
  [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Name) return board_->Model().Description(cell_);
    if (kind == QAccessible::Description) return board_->Model().Cell(cell_).Text;
    return {};
  }

  [[nodiscard]] QRect rect() const override {
    const QRect cell = board_->CellRect(cell_);
    return {board_->mapToGlobal(cell.topLeft()), cell.size()};
  }

  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state;
    state.focusable = true;
    state.selectable = true;
    state.disabled = !board_->isEnabled();
    state.invisible = !board_->isVisible();
    const bool current = board_->Model().CurrentCell() == cell_;
    state.selected = current;
    state.focused = current && board_->hasFocus();
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
  }

  [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
  [[nodiscard]] QStringList keyBindingsForAction(const QString& /*action*/) const override { return {}; }
  void doAction(const QString& action) override {
    if (action != pressAction() || !board_->isEnabled()) return;
    // Later: a click may open a box, and the screen reader waits for this call to return.
    QMetaObject::invokeMethod(
        board_, [board = board_, cell = cell_] { board->Click(cell); }, Qt::QueuedConnection);
  }

 private:
  BoardView* board_;
  CellIndex cell_;
};

class BoardAccessible : public QAccessibleWidget {
 public:
  explicit BoardAccessible(BoardView& board)
      : QAccessibleWidget(&board, QAccessible::Grouping),
        board_(board),
        columns_(board.Model().columnCount()),
        ids_(static_cast<std::size_t>(board.Model().rowCount() * columns_)) {}
  BoardAccessible(const BoardAccessible&) = delete;
  BoardAccessible& operator=(const BoardAccessible&) = delete;
  ~BoardAccessible() override {
    for (const QAccessible::Id id : ids_) {
      if (id != 0) QAccessible::deleteAccessibleInterface(id);
    }
  }

  [[nodiscard]] int IndexOf(CellIndex cell) const { return cell.Row * columns_ + cell.Column; }

  [[nodiscard]] int childCount() const override { return static_cast<int>(ids_.size()); }

  [[nodiscard]] QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) return nullptr;
    QAccessible::Id& id = ids_[static_cast<std::size_t>(index)];
    if (id == 0) {
      id = QAccessible::registerAccessibleInterface(new CellAccessible(board_, {index / columns_, index % columns_}));
    }
    return QAccessible::accessibleInterface(id);
  }

  int indexOfChild(const QAccessibleInterface* wanted) const override {
    for (int index = 0; index < childCount(); ++index) {
      if (child(index) == wanted) return index;
    }
    return -1;
  }

  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
    const auto cell = board_.CellAt(board_.mapFromGlobal(QPoint(x, y)));
    return cell ? child(IndexOf(*cell)) : nullptr;
  }

  [[nodiscard]] QAccessibleInterface* focusChild() const override {
    return board_.hasFocus() ? child(IndexOf(board_.Model().CurrentCell())) : nullptr;
  }

 private:
  BoardView& board_;
  int columns_;
  mutable std::vector<QAccessible::Id> ids_;  // 0: not asked for yet
};

class AnnouncerAccessible : public QAccessibleWidget {
 public:
  explicit AnnouncerAccessible(Announcer& announcer) : QAccessibleWidget(&announcer, QAccessible::Notification) {}
  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? static_cast<Announcer*>(object())->text() : QString();
  }
};

QAccessibleInterface* MakeInterface(const QString& /*class_name*/, QObject* object) {
  if (auto* board = qobject_cast<BoardView*>(object)) return new BoardAccessible(*board);
  if (auto* announcer = qobject_cast<Announcer*>(object)) return new AnnouncerAccessible(*announcer);
  if (auto* strip = qobject_cast<Strip*>(object)) return MakeAccessible(*strip);
  return nullptr;
}

void Tell(BoardView& board, CellIndex cell, QAccessible::Event kind) {
  QAccessibleEvent event(&board, kind);
  event.setChild(cell.Row * board.Model().columnCount() + cell.Column);
  QAccessible::updateAccessibility(&event);
}

}  // namespace

void InstallAccessibleFactory() { QAccessible::installFactory(MakeInterface); }

void TellFocus(BoardView& board) { Tell(board, board.Model().CurrentCell(), QAccessible::Focus); }

void TellChange(BoardView& board, CellIndex cell) {
  Tell(board, cell, QAccessible::NameChanged);
  Tell(board, cell, QAccessible::DescriptionChanged);
}

}  // namespace brontavia
