// What a script of three in a row is played against, and what holds there.
#pragma once

#include <array>

#include "fuzz/session.h"
#include "games/three_in_row/three_in_row_flow.h"

namespace brontavia::fuzz {

struct ThreeInRow {
  using Flow = ThreeInRowFlow;

  static auto Make(const Seams& seams) { return std::make_unique<WatchedFlow<ThreeInRow>>(seams, 1); }
  static std::string Begun(Role role) { return Handshake(role, kFormTER.GameCode); }
  static std::string Placed(Role /*role*/) { return {}; }
  static std::array<BoardModel*, 1> Grids(Flow& flow) { return {&flow.FG1()}; }

  // The own placements are counted by own moves alone; a new game begins at none.
  struct Own {
    explicit Own(const Flow& flow) : Placed(flow.Board().PiecesPlaced(flow.OwnPlayer())) {}
    int Placed;
  };
  static void CheckRead(const Own& before, const Own& after) {
    Require(after.Placed == before.Placed || after.Placed == 0, "a read places no own piece");
  }

  static void Check(const Flow& flow) {
    const ThreeInRowBoard& board = flow.Board();
    for (int cell = 0; cell < kTerCells; ++cell) {
      const char16_t symbol = board.At(cell);
      Require(symbol == u'*' || symbol == u'X' || symbol == u'O', "a cell is empty or holds a piece");
    }
    Require(board.PosQuitada() >= kNoCell && board.PosQuitada() < kTerCells, "a piece is lifted from the board");
    for (const Player player : kBothPlayers) Require(board.PiecesPlaced(player) >= 0, "placements only grow");
  }

  static void Perform(Flow& /*flow*/, const Step& /*step*/) {}
};

}  // namespace brontavia::fuzz
