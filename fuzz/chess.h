// What a script of chess is played against, and what holds there.
#pragma once

#include <array>

#include "fuzz/chess_checks.h"
#include "fuzz/scripted_events.h"
#include "fuzz/session.h"
#include "games/chess/chess_flow.h"

namespace brontavia::fuzz {

struct Chess {
  using Flow = ChessFlow;

  static auto Make(const Seams& seams) {
    return std::make_unique<WatchedFlow<Chess>>(seams, 1, [] { return ScriptedEvents::Instance().Now(); });
  }
  static std::string Begun(Role role) { return Handshake(role, kFormAje.GameCode); }
  static std::string Placed(Role /*role*/) { return {}; }
  static std::array<BoardModel*, 1> Grids(Flow& flow) { return {&flow.FG1()}; }

  // How the player sees the board, and whether he may edit it, is his alone.
  struct Own {
    explicit Own(const Flow& flow)
        : Free(flow.FreeMode()), Learning(flow.LearningMode()), Flipped(flow.BoardFlipped()) {}
    friend bool operator==(const Own&, const Own&) = default;
    bool Free;
    bool Learning;
    bool Flipped;
  };
  static void CheckRead(const Own& before, const Own& after) {
    Require(before == after, "a read leaves the player's own modes alone");
  }

  static void Check(const Flow& flow) {
    const ChessGame& game = flow.Game();
    CheckPosition(game.Position());
    if (!game.HasSelection()) return;
    Require(game.Position().Board.At(game.Selection().Source) == game.Selection().Piece,
            "what is picked up stands there");
    for (const Coordinate square : game.Targets()) Require(ChessBoard::IsOnBoard(square), "a target is on the board");
  }

  static void Perform(Flow& flow, const Step& step) {
    static constexpr std::array kKeys{Qt::Key_Escape, Qt::Key_Delete, Qt::Key_Menu, Qt::Key_F5};
    if (step.What == 'k') {
      flow.BoardKeyPressed(kKeys.at(static_cast<std::size_t>(NumberAt(step.Text, 0, static_cast<int>(kKeys.size())))));
    }
    if (step.What != 'm') return;
    constexpr int kEntries = static_cast<int>(kFileMenu.size() + kOptionsMenu.size());
    const auto number = static_cast<std::size_t>(NumberAt(step.Text, 0, kEntries));
    const ChessMenuEntry& entry =
        number < kFileMenu.size() ? kFileMenu.at(number) : kOptionsMenu.at(number - kFileMenu.size());
    if (flow.IsAvailable(entry)) flow.Run(entry.Command);
  }
};

}  // namespace brontavia::fuzz
