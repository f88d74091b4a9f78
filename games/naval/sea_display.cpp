#include "games/naval/sea_display.h"

#include "games/naval/naval_board.h"

namespace brontavia {

void MoveMark(BoardModel& grid, Mark mark, std::optional<Coordinate> cell) {
  for (const Coordinate each : CellsBetween({1, 1}, {kSeaSide, kSeaSide})) {
    CellContent content = grid.Cell(IndexOf(each));
    content.Marks.setFlag(mark, each == cell);
    grid.SetCell(IndexOf(each), content);
  }
}

void SetDrawing(BoardModel& grid, Coordinate cell, const SeaDrawing& drawing) {
  CellContent content = grid.Cell(IndexOf(cell));
  content.Drawing = Packed(drawing);
  grid.SetCell(IndexOf(cell), content);
}

}  // namespace brontavia
