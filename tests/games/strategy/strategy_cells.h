// The cells of strategy boards as the tests of the rules name and compare them.
#pragma once

#include <array>
#include <ostream>
#include <string_view>
#include <vector>

#include "games/strategy/strategy_board.h"

namespace brontavia {

inline void PrintTo(const Coordinate& cell, std::ostream* out) {
  *out << static_cast<char>('A' + cell.Column - 1) << cell.Row;
}

namespace test {

struct NamedVariant {
  std::string_view Name;
  const StrategyVariant& Variant;
};
inline constexpr std::array<NamedVariant, 2> kVariants{{{"Estratega", kEstratega}, {"Mini-Estratega", kMiniEstratega}}};

// 1..13.
constexpr Rank RankNumbered(int number) { return static_cast<Rank>(number); }

// "C10" is column 3, row 10.
constexpr Coordinate Cell(std::string_view name) {
  Coordinate cell{.Column = name.front() - 'A' + 1};
  for (const char digit : name.substr(1)) cell.Row = cell.Row * 10 + (digit - '0');
  return cell;
}

// Row by row from the bottom, each from column A.
inline std::vector<Coordinate> AllCells(const StrategyVariant& variant) {
  std::vector<Coordinate> cells;
  for (int row = 1; row <= variant.Rows; ++row) {
    for (int column = 1; column <= variant.Columns; ++column) cells.push_back({.Column = column, .Row = row});
  }
  return cells;
}

// The whole board, in the order of AllCells.
inline std::vector<CellCode> CodesOf(const StrategyBoard& board) {
  std::vector<CellCode> codes;
  for (const Coordinate cell : AllCells(board.Variant())) codes.push_back(board.At(cell));
  return codes;
}

// Every cell of the board and a rim of two around it that is none.
inline std::vector<Coordinate> CellsAndRim(const StrategyVariant& variant) {
  std::vector<Coordinate> cells;
  for (int column = -1; column <= variant.Columns + 2; ++column) {
    for (int row = -1; row <= variant.Rows + 2; ++row) cells.push_back({.Column = column, .Row = row});
  }
  return cells;
}

}  // namespace test
}  // namespace brontavia
