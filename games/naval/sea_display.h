// Cells of the sea as grids and texts show them.
#pragma once

#include <QString>

#include "games/naval/fleet.h"
#include "ui/board_model.h"

namespace brontavia {

inline constexpr ColourValue kWaterColour = 0xFF0000;  // blue
inline constexpr ColourValue kHitColour = 0x0000FF;    // red

inline CellIndex IndexOf(Coordinate cell) { return {.Row = cell.Row, .Column = cell.Column}; }

inline Coordinate CellOf(CellIndex index) { return {.Column = index.Column, .Row = index.Row}; }

inline QChar ColumnLetter(int column) { return QChar(u'A' + column - 1); }

inline QString CellName(Coordinate cell) { return ColumnLetter(cell.Column) + QString::number(cell.Row); }

inline QString ToQString(std::u16string_view text) { return QStringView(text).toString(); }

}  // namespace brontavia
