// Cells of the sea as grids show them.
#pragma once

#include <optional>

#include "games/coordinate.h"
#include "games/naval/sea_drawing.h"
#include "seams/board_model.h"

namespace brontavia {

inline constexpr ColourValue kWaterColour = 0xFF0000;  // blue
inline constexpr ColourValue kHitColour = 0x0000FF;    // red

inline CellIndex IndexOf(Coordinate cell) { return {.Row = cell.Row, .Column = cell.Column}; }

inline Coordinate CellOf(CellIndex index) { return {.Column = index.Column, .Row = index.Row}; }

// `mark` on `cell` alone, or nowhere.
void MoveMark(BoardModel& grid, Mark mark, std::optional<Coordinate> cell);

void SetDrawing(BoardModel& grid, Coordinate cell, const SeaDrawing& drawing);

}  // namespace brontavia
