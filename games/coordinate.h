// A cell of a board with lettered columns and numbered rows, as players name it: "A1" is column 1, row 1.
#pragma once

namespace brontavia {

// Columns and rows count from 1. (0, 0) is no cell.
struct Coordinate {
  int Column = 0;
  int Row = 0;
  friend bool operator==(const Coordinate&, const Coordinate&) = default;
};

}  // namespace brontavia
