#include "ui/board_accessible.h"

#include <QAccessibleWidget>
#include <QWindow>
#include <optional>
#include <vector>

#include "seams/board_model.h"
#include "ui/board_view.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

// A text for the eye alone: a hidden piece, a hit on the own fleet, an empty cell.
constexpr QChar kSign = u'*';

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
    if (kind == QAccessible::Name) return told_name_.emplace(board_->Model().Description(cell_));
    if (kind == QAccessible::Description) return told_rest_.emplace(Rest());
    return {};
  }

  // Whether what a screen reader was told is no longer true. What it was not asked for it does not know.
  [[nodiscard]] bool Renamed() const { return told_name_ && told_name_ != board_->Model().Description(cell_); }
  [[nodiscard]] bool RestChanged() const { return told_rest_ && told_rest_ != Rest(); }

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
  // What can be read on the cell and is not said in its name.
  [[nodiscard]] QString Rest() const {
    const BoardModel& model = board_->Model();
    const QString& shown = model.Cell(cell_).Text;
    if (shown == kSign || model.Description(cell_).contains(shown, Qt::CaseInsensitive)) return {};
    return shown;
  }

  BoardView* board_;
  CellIndex cell_;
  mutable std::optional<QString> told_name_;
  mutable std::optional<QString> told_rest_;
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

  // The cell, 0..childCount() - 1, if anybody has asked for it.
  [[nodiscard]] const CellAccessible* Known(int index) const {
    const QAccessible::Id id = ids_[static_cast<std::size_t>(index)];
    return id == 0 ? nullptr : static_cast<const CellAccessible*>(QAccessible::accessibleInterface(id));
  }

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

void Tell(BoardView& board, int cell, QAccessible::Event kind) {
  QAccessibleEvent event(&board, kind);
  event.setChild(cell);
  QAccessible::updateAccessibility(&event);
}

BoardAccessible& AccessibleOf(BoardView& board) {
  return static_cast<BoardAccessible&>(*QAccessible::queryAccessibleInterface(&board));
}

int IndexOfCurrent(BoardView& board) {
  const auto [row, column] = board.Model().CurrentCell();
  return row * board.Model().columnCount() + column;
}

}  // namespace

QAccessibleInterface* MakeAccessible(BoardView& board) { return new BoardAccessible(board); }

void TellFocus(BoardView& board) { Tell(board, IndexOfCurrent(board), QAccessible::Focus); }

bool TellNames(BoardView& board) {
  const BoardAccessible& cells = AccessibleOf(board);
  const int current = IndexOfCurrent(board);
  bool renamed = false;
  for (int index = 0; index < cells.childCount(); ++index) {
    const CellAccessible* cell = cells.Known(index);
    if (cell == nullptr) continue;
    if (cell->Renamed()) {
      renamed |= index == current;
      Tell(board, index, QAccessible::NameChanged);
    }
    // Of a cell without the focus nobody speaks it, and a board that changes whole would drown what matters.
    if (index == current && board.hasFocus() && cell->RestChanged())
      Tell(board, index, QAccessible::DescriptionChanged);
  }
  return renamed;
}

}  // namespace brontavia
