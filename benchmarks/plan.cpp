#include "benchmarks/plan.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>
#include <array>
#include <stdexcept>

#include "games/strategy/strategy_drawing.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

// A line that the log shows in games without placing, and a box in those with it.
const QString kTurnSettled = u"mutua"_s;
const QString kBothReady = u"Ambos jugadores están listos"_s;

// Each places three pieces that make no line and then moves the third to and fro.
class ThreeInRowPlan : public Plan {
 public:
  explicit ThreeInRowPlan(Player own)
      : fixed_(own == Player::Server ? std::array{0, 1} : std::array{2, 4}),
        shuttle_(own == Player::Server ? std::array{5, 8} : std::array{3, 7}),
        others_(own == Player::Server ? std::array{2, 4, 3, 7} : std::array{0, 1, 5, 8}) {}

  [[nodiscard]] QString Beginning() const override { return kTurnSettled; }
  std::vector<CellIndex> Move(const BoardModel& /*board*/, std::size_t turn) override {
    if (turn < fixed_.size()) return {Cell(fixed_.at(turn))};
    if (turn == fixed_.size()) return {Cell(shuttle_.at(0))};
    return {Cell(shuttle_.at((turn + 1) % 2)), Cell(shuttle_.at(turn % 2))};
  }
  [[nodiscard]] bool IsWatched(CellIndex cell) const override {
    return std::ranges::any_of(others_, [&](int each) { return Cell(each) == cell; });
  }

 private:
  static CellIndex Cell(int number) { return {.Row = number / 3, .Column = number % 3}; }

  std::array<int, 2> fixed_;
  std::array<int, 2> shuttle_;
  std::array<int, 4> others_;
};

// Both have their ships at the same places, and shoot at water alone.
class NavalPlan : public Plan {
 public:
  [[nodiscard]] QString Beginning() const override { return kBothReady; }
  void Place(BoardView& board) override {
    if (placed_ == kFleet.size()) return;
    const auto& [first, last] = kFleet.at(placed_);
    if (!board.Model().Cell(last).Text.isEmpty()) {
      ++placed_;
      return;
    }
    Click(board, first);
    Click(board, last);
  }
  std::vector<CellIndex> Move(const BoardModel& /*board*/, std::size_t turn) override {
    const int shot = static_cast<int>(turn);
    return {{.Row = 2 * (shot / kSide % (kSide / 2)) + 2, .Column = shot % kSide + 1}};
  }
  [[nodiscard]] QString WatchedBoard() const override { return u"FG2"_s; }
  [[nodiscard]] bool IsWatched(CellIndex cell) const override { return cell.Row % 2 == 0; }

 private:
  static constexpr int kSide = 10;
  struct Ship {
    CellIndex First;
    CellIndex Last;
  };
  static constexpr std::array<Ship, 7> kFleet{{{{1, 1}, {1, 5}},
                                               {{3, 1}, {3, 4}},
                                               {{5, 1}, {5, 3}},
                                               {{5, 5}, {5, 7}},
                                               {{7, 1}, {7, 3}},
                                               {{7, 5}, {7, 6}},
                                               {{9, 1}, {9, 2}}}};
  std::size_t placed_ = 0;
};

// A piece of the first row goes one step ahead and back; the program deploys the army.
class StrategyPlan : public Plan {
 public:
  StrategyPlan(int front_row, std::vector<int> open_columns)
      : front_row_(front_row), open_columns_(std::move(open_columns)) {}

  [[nodiscard]] QString Beginning() const override { return kBothReady; }
  void Place(BoardView& board) override {
    if (!deployed_) {
      Press(board, Qt::Key_F3);
      deployed_ = !board.Model().Cell({front_row_, 1}).Text.isEmpty();
    } else if (calls_++ % kCallsBetweenTries == 0) {
      Press(board, Qt::Key_Escape);
    }
  }
  std::vector<CellIndex> Move(const BoardModel& board, std::size_t turn) override {
    if (turn == 0) column_ = MovableColumn(board);
    const CellIndex home{front_row_, column_};
    const CellIndex ahead{front_row_ - 1, column_};
    return turn % 2 == 0 ? std::vector{home, ahead} : std::vector{ahead, home};
  }
  [[nodiscard]] bool IsWatched(CellIndex cell) const override { return cell.Row == front_row_ - 2; }

 private:
  [[nodiscard]] int MovableColumn(const BoardModel& board) const {
    for (const int column : open_columns_) {
      const auto rank = drawing::RankOf(board.Cell({front_row_, column}).Drawing);
      if (rank && *rank != Rank::Bomb && *rank != Rank::Flag) return column;
    }
    throw std::runtime_error("only bombs in front");
  }

  // A window that still waits for the other copy does not heed the key.
  static constexpr int kCallsBetweenTries = 20;

  int front_row_;
  std::vector<int> open_columns_;  // without a lake
  bool deployed_ = false;
  int calls_ = 0;
  int column_ = 0;
};

// A knight goes out and back.
class ChessPlan : public Plan {
 public:
  explicit ChessPlan(Player own) : own_(own) {}

  [[nodiscard]] QString Beginning() const override { return kTurnSettled; }
  std::vector<CellIndex> Move(const BoardModel& /*board*/, std::size_t turn) override {
    if (turn % 2 == 0) return {Home(own_), Out(own_)};
    return {Out(own_), Home(own_)};
  }
  [[nodiscard]] bool IsWatched(CellIndex cell) const override { return cell == Out(OpponentOf(own_)); }

 private:
  static CellIndex Home(Player player) { return {player == Player::Server ? 8 : 1, 2}; }
  static CellIndex Out(Player player) { return {player == Player::Server ? 6 : 3, 3}; }

  Player own_;
};

}  // namespace

std::unique_ptr<Plan> PlanFor(int index, Player own) {
  switch (index) {
    case 0:
      return std::make_unique<ThreeInRowPlan>(own);
    case 1:
      return std::make_unique<NavalPlan>();
    case 2:
      return std::make_unique<StrategyPlan>(6, std::vector{1, 3, 4, 5, 7});
    case 3:
      return std::make_unique<StrategyPlan>(7, std::vector{1, 2, 5, 6, 9, 10});
    case 4:
      return std::make_unique<ChessPlan>(own);
    default:
      throw std::out_of_range("no such game");
  }
}

void Click(BoardView& board, CellIndex cell) {
  const QPointF centre = board.CellRect(cell).center();
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent event(type, centre, board.mapToGlobal(centre), Qt::LeftButton,
                      type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&board, &event);
  }
}

void Press(QWidget& widget, Qt::Key key) {
  for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
  }
}

}  // namespace brontavia
