// Cells by their names.
#pragma once

#include <QString>

#include "games/coordinate.h"

namespace brontavia::test {

// "C7" as a cell.
inline Coordinate CellNamed(const QString& name) {
  return {.Column = name.at(0).unicode() - u'A' + 1, .Row = name.mid(1).toInt()};
}

}  // namespace brontavia::test
