// What is drawn on a cell of the sea besides the sign that its colour stands for, as the flow tells it to the painter.
#pragma once

namespace brontavia {

// A ship lies from left to right or from top to bottom; its length tells its kind.
struct SeaDrawing {
  int ShipLength = 0;  // 2..5; 0 where no ship is shown
  int Segment = 0;     // of the ship on this cell: 1 at its left or upper end .. ShipLength
  bool Upright = false;
  bool Sunk = false;
  bool Margin = false;  // water beside an own ship, while ships are placed
  bool Ring = false;    // an enemy shot that has hit nothing
  friend bool operator==(const SeaDrawing&, const SeaDrawing&) = default;
};

// As CellContent::Drawing holds it: 0 for nothing.
constexpr int Packed(const SeaDrawing& drawing) {
  return drawing.ShipLength | drawing.Segment << 3 | static_cast<int>(drawing.Upright) << 6 |
         static_cast<int>(drawing.Sunk) << 7 | static_cast<int>(drawing.Margin) << 8 |
         static_cast<int>(drawing.Ring) << 9;
}

constexpr SeaDrawing Unpacked(int packed) {
  return {.ShipLength = packed & 7,
          .Segment = packed >> 3 & 7,
          .Upright = (packed >> 6 & 1) != 0,
          .Sunk = (packed >> 7 & 1) != 0,
          .Margin = (packed >> 8 & 1) != 0,
          .Ring = (packed >> 9 & 1) != 0};
}

}  // namespace brontavia
