// What a player does who plays to and fro without end: in each game another. Neither side ever wins.
#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "net/player.h"
#include "ui/board_view.h"

namespace brontavia {

class Plan {
 public:
  Plan() = default;
  Plan(const Plan&) = delete;
  Plan& operator=(const Plan&) = delete;
  virtual ~Plan() = default;

  // What stands in the log or in a box once moves can be made.
  [[nodiscard]] virtual QString Beginning() const = 0;
  // Does one step of what is to be placed before. Called again and again until the game begins.
  virtual void Place(BoardView& /*board*/) {}
  // The cells to click for the own move of this number, from 0; the last one makes the move.
  virtual std::vector<CellIndex> Move(const BoardModel& board, std::size_t turn) = 0;
  // Where the moves of the other player show: the board's name, and its cells.
  [[nodiscard]] virtual QString WatchedBoard() const { return QStringLiteral("FG1"); }
  [[nodiscard]] virtual bool IsWatched(CellIndex cell) const = 0;
};

// Of the game at `index` in the list of games.
std::unique_ptr<Plan> PlanFor(int index, Player own);

// As a user does it.
void Click(BoardView& board, CellIndex cell);
void Press(QWidget& widget, Qt::Key key);

}  // namespace brontavia
