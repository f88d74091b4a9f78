// A board as a screen reader meets it: a group with one list item a cell, in row-major order. A table would be read
// whole rows at a time.
#pragma once

class QAccessibleInterface;

namespace brontavia {

class BoardView;

// Qt owns what it is given.
QAccessibleInterface* MakeAccessible(BoardView& board);

// The screen reader's focus is on the board's current cell.
void TellFocus(BoardView& board);

// Tells of the cells whose names have changed since a screen reader asked for them. Returns whether the current cell is
// one of them.
bool TellNames(BoardView& board);

}  // namespace brontavia
