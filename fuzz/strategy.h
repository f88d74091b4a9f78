// What a script of both strategy games is played against, and what holds there.
#pragma once

#include <array>

#include "fuzz/session.h"
#include "games/strategy/strategy_flow.h"
#include "text/qt_text.h"

namespace brontavia::fuzz {

inline constexpr unsigned kSeed = 1;

// The army that a window of `player` deploys first.
inline std::string DeployedArmy(const StrategyVariant& variant, Player player) {
  StrategyBoard board(variant);
  Army army(board);
  RandomDraw draw(kSeed);
  army.Reset(player);
  army.DeployAtRandom([&draw](int count) { return draw.Below(count); });
  return ToQString(board.ArmyText()).toStdString();
}

template <const StrategyGame& kGame>
struct Strategy {
  using Flow = StrategyFlow;

  static auto Make(const Seams& seams) { return std::make_unique<WatchedFlow<Strategy>>(kGame, seams, kSeed); }
  static std::string Begun(Role role) { return Handshake(role, kGame.Window.GameCode); }
  // The own army, deployed by the key, then the other's; all boxes are answered.
  static std::string Placed(Role role) {
    static const PerPlayer<std::string> armies{.Server = DeployedArmy(kGame.Variant, Player::Server),
                                               .Client = DeployedArmy(kGame.Variant, Player::Client)};
    std::string steps = "kb\nay\nay\nrDatos|";
    steps += armies[role == Role::Server ? Player::Client : Player::Server];
    steps += "\nay\nrListo|\nay\n";
    return steps;
  }
  static std::array<BoardModel*, 1> Grids(Flow& flow) { return {&flow.FG1()}; }

  // A read may take own pieces off, move them (whatever stands where the opponent's move begins) and reveal a bomb; it
  // adds none, and what is left to place stays, unless it begins a new game.
  struct Own {
    explicit Own(const Flow& flow) : ToPlace(flow.Army().PiecesToPlace()) {
      ForEachCell([&](Coordinate cell) {
        const auto piece = flow.StrategyBoard().PieceAt(cell);
        if (piece && piece->Side == flow.OwnPlayer()) ++OnBoard[piece->Rank];
      });
    }
    [[nodiscard]] int Bombs() const { return OnBoard[Rank::Bomb] + OnBoard[Rank::RevealedBomb]; }

    RankCounts OnBoard;
    int ToPlace;
  };
  static void CheckRead(const Own& before, const Own& after) {
    for (const Rank rank : kArmyRanks) {
      Require(after.OnBoard[rank] <= before.OnBoard[rank], "a read adds no own piece");
    }
    Require(after.Bombs() <= before.Bombs(), "a bomb is revealed, none is added");
    Require(after.ToPlace == before.ToPlace || after.ToPlace == kGame.Variant.ArmySize(),
            "a read places no own piece and takes none back");
  }

  static void Check(const Flow& flow) {
    ForEachCell([&](Coordinate cell) {
      const CellCode code = flow.StrategyBoard().At(cell);
      Require(code == kWaterCell || code == kEmptyLand || PieceOf(code), "a cell holds water, land or a piece");
    });
    int to_place = flow.Army().RanksToPlace(Rank::RevealedBomb);
    for (const Rank rank : kArmyRanks) {
      const int of_rank = flow.Army().RanksToPlace(rank);
      Require(of_rank >= 0, "no piece is placed that is not there");
      to_place += of_rank;
    }
    Require(to_place == flow.Army().PiecesToPlace(), "the pieces to place are counted");
    Require(to_place <= kGame.Variant.ArmySize(), "an army is no larger than its zone");
    if (const auto selected = flow.SelectedCell()) Require(flow.StrategyBoard().Holds(*selected), "a cell is selected");
  }

  static void Perform(Flow& flow, const Step& step) {
    static constexpr std::array kKeys{Qt::Key_F2, Qt::Key_F3, Qt::Key_Escape};
    if (step.What != 'k') return;
    flow.KeyPressed(kKeys.at(static_cast<std::size_t>(NumberAt(step.Text, 0, static_cast<int>(kKeys.size())))));
  }

 private:
  template <typename Visit>
  static void ForEachCell(const Visit& visit) {
    for (Coordinate cell{.Column = 1, .Row = 1}; cell.Row <= kGame.Variant.Rows; ++cell.Row) {
      for (cell.Column = 1; cell.Column <= kGame.Variant.Columns; ++cell.Column) visit(cell);
    }
  }
};

}  // namespace brontavia::fuzz
