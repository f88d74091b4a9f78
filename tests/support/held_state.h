// Everything that a copy of a game shows and has settled, as one text: what has not happened leaves it as it was.
#pragma once

#include "seams/board_model.h"
#include "tests/support/game_pair.h"

namespace brontavia::test {

inline QString ShownOn(const BoardModel& board) {
  QString cells = QStringLiteral("current %1, %2\n").arg(board.CurrentCell().Row).arg(board.CurrentCell().Column);
  for (int row = 0; row < board.Shape().Rows; ++row) {
    for (int column = 0; column < board.Shape().Columns; ++column) {
      const CellContent& cell = board.Cell({.Row = row, .Column = column});
      cells += QStringLiteral("[%1 %2 %3 %4 %5]")
                   .arg(cell.Text)
                   .arg(cell.ForeColour)
                   .arg(cell.BackColour)
                   .arg(cell.Marks)
                   .arg(cell.Drawing);
    }
    cells += u'\n';
  }
  return cells;
}

// The boxes are left out: one of them tells why nothing has happened.
template <typename Game>
QString HeldState(const GameCopy<Game>& copy) {
  const RecordingScreen& screen = copy.Screen;
  const Session& session = copy.Flow.State();
  return ShownOn(copy.Flow.FG1()) +
         QStringList({screen.Caption, screen.Status, screen.Messages, screen.Ships, screen.Moves, screen.Position,
                      screen.Clocks, screen.Sounds.join(u", "), copy.Connection.Sent.join(u", ")})
             .join(u'\n') +
         QStringLiteral("\nturn %1, over %2, score %3 : %4, ended %5")
             .arg(NumberOf(session.CurrentTurn))
             .arg(session.GameOver)
             .arg(session.Scores.Server)
             .arg(session.Scores.Client)
             .arg(copy.Finished.has_value());
}

}  // namespace brontavia::test
