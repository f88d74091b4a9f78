// How texts name the cells of a board.
#pragma once

#include <QString>

#include "games/coordinate.h"

namespace brontavia {

// 1 is "A".
inline QChar ColumnLetter(int column) { return QChar(u'A' + column - 1); }

// "C5": the letter of the column, then the row.
inline QString CellName(Coordinate cell) { return ColumnLetter(cell.Column) + QString::number(cell.Row); }

}  // namespace brontavia
