// A board as a screen reader meets it: a group with one list item a cell, in row-major order. A table would be read
// whole rows at a time.
#pragma once

#include <QAccessible>

#include "seams/board_model.h"

namespace brontavia {

class BoardView;

// Teaches Qt the interfaces of boards, announcers and strips. Once, after the application object has been made.
void InstallAccessibleFactory();

// The screen reader's focus is on the board's current cell.
void TellFocus(BoardView& board);

// What is on `cell` has changed.
void TellChange(BoardView& board, CellIndex cell);

}  // namespace brontavia
