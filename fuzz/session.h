// A script played against the flow of a window, which is looked at after each step.
//
// A game tells by a struct:
//   Flow                       its flow
//   Make(seams)                ... made, as a std::unique_ptr of WatchedFlow<Game>
//   Begun(role), Placed(role)  openings, as scripts: up to the first turn, and on until both have placed their pieces
//   Grids(flow)                its boards
//   Own                        what of it no read may change, but as the rules have it
//   CheckRead(before, after)   whether the rules allow what a read has done to it
//   Check(flow)                what always holds
//   Perform(flow, step)        the game's own steps
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "fuzz/require.h"
#include "fuzz/stage.h"
#include "net/counted.h"
#include "net/game_flow.h"
#include "seams/board_model.h"

namespace brontavia::fuzz {

// A flow whose reads are counted and compared. What a read may do does not depend on what happens under its boxes: the
// user's actions are ignored there.
template <typename Game>
class WatchedFlow : public Game::Flow {
 public:
  using Base = typename Game::Flow;
  using Base::Base;

 protected:
  void HandleMessage(const QString& text) override {
    Read([&] { Base::HandleMessage(text); });
  }
  void StartSession() override {
    if (this->OwnPlayer() == Player::Server) {
      Base::StartSession();
    } else {
      Read([this] { Base::StartSession(); });
    }
  }

 private:
  static constexpr int kMostReads = 8;

  template <typename Handler>
  void Read(const Handler& handler) {
    const Counted reading(reads_);
    Require(reads_ <= kMostReads, "eight reads on the stack at most");
    const typename Game::Own before(*this);
    handler();
    Game::CheckRead(before, typename Game::Own(*this));
  }

  int reads_ = 0;
};

// Up to the first turn, which the server has.
inline std::string Handshake(Role role, QStringView game_code) {
  if (role == Role::Server) return "q\nay\naAna\na1\nrNombre|Luis\nrturno|2\n";
  std::string steps = "L\no\nrSolicitud aceptada|";
  steps += game_code.toString().toStdString();
  steps += "\naLuis\na2\nrNombre|Ana\nrTurnodef|00\n";
  return steps;
}

// The window that a script is for, and what has happened there before, as a script.
struct Opening {
  Role PlayedRole = Role::Server;
  std::string Steps;
  bool RefusesToListen = false;
};

template <typename Game>
Opening OpeningOf(char choice) {
  switch (choice) {
    case 's':
      return {.PlayedRole = Role::Server};
    case 'c':
      return {.PlayedRole = Role::Client};
    case 'f':
      return {.PlayedRole = Role::Server, .RefusesToListen = true};
    case 'C':
      return {.PlayedRole = Role::Client, .Steps = Game::Begun(Role::Client)};
    case 'P':
      return {.PlayedRole = Role::Server, .Steps = Game::Begun(Role::Server) + Game::Placed(Role::Server)};
    case 'Q':
      return {.PlayedRole = Role::Client, .Steps = Game::Begun(Role::Client) + Game::Placed(Role::Client)};
    default:
      return {.PlayedRole = Role::Server, .Steps = Game::Begun(Role::Server)};
  }
}

template <typename Game>
class Session {
 public:
  Session(const Opening& opening, Stage::Source next)
      : stage_(opening.PlayedRole, std::move(next)), flow_(Game::Make(stage_.Seams())) {
    stage_.Connection.RefusesToListen = opening.RefusesToListen;
    stage_.Perform = [this](const Step& step) { Perform(step); };
    stage_.Check = [this] { Check(); };
    QObject::connect(flow_.get(), &ConnectionFlow::Finished, flow_.get(), [this] {
      Require(!stage_.Finished, "a window ends once");
      stage_.Finished = true;
    });
    for (BoardModel* grid : Game::Grids(*flow_)) {
      QObject::connect(grid, &BoardModel::dataChanged, grid, [this] { stage_.Written(); });
      QObject::connect(grid, &BoardModel::CurrentCellChanged, grid, [this] { stage_.Written(); });
    }
  }

  void Play() {
    flow_->Load();
    stage_.Play();
  }

  Stage& Seams() { return stage_; }
  typename Game::Flow& Flow() { return *flow_; }

 private:
  void Perform(const Step& step) {
    switch (step.What) {
      case 'c':
        if (const auto cell = PointTo(step)) flow_->BoardClicked(*cell);
        break;
      case 'p':
        PointTo(step);
        break;
      case 'L':
        flow_->CBConLocalClicked();
        break;
      case 'C':
        flow_->CbConectarClicked();
        break;
      case 'x':
        flow_->CloseRequested();
        break;
      default:
        Game::Perform(*flow_, step);
    }
  }

  // As the window does before a click. Nothing on a header, which takes none, and when the window ends under it.
  std::optional<CellIndex> PointTo(const Step& step) {
    if (flow_->Ended()) return std::nullopt;
    BoardModel& grid = flow_->FG1();
    const CellIndex cell{.Row = NumberAt(step.Text, 0, grid.Shape().Rows),
                         .Column = NumberAt(step.Text, 1, grid.Shape().Columns)};
    if (grid.IsHeader(cell)) return std::nullopt;
    grid.SetCurrentCell(cell);
    return cell;
  }

  void Check() {
    const brontavia::Session& session = flow_->State();
    for (const Player player : {session.CurrentTurn, session.StartingPlayer, session.Winner.value_or(Player::Server)}) {
      Require(NumberOf(player) <= 1, "there are two players");
    }
    Require(session.Scores.Server >= 0 && session.Scores.Client >= 0, "scores only grow");
    Game::Check(*flow_);
  }

  Stage stage_;
  std::unique_ptr<WatchedFlow<Game>> flow_;
};

// Plays `script`, and then closes the window.
template <typename Game>
void FuzzWindow(std::string_view script) {
  const auto first_line = script.substr(0, script.find('\n'));
  const Opening opening = OpeningOf<Game>(first_line.empty() ? 'S' : first_line.front());
  // To answer all boxes with "y" ends every window: the question whether to close is among them. Time passes between,
  // because a box that comes after many waits until the window has been free.
  static const std::string end = [] {
    std::string steps = "l\nx\n";
    for (int box = 0; box < 64; ++box) steps += "ay\nsa\n";
    return steps;
  }();
  script.remove_prefix(first_line.size());
  std::array parts{Script(opening.Steps), Script(script), Script(end)};
  Session<Game>(opening, [&parts]() -> std::optional<Step> {
    for (Script& part : parts) {
      if (auto step = part.Next()) return step;
    }
    return std::nullopt;
  }).Play();
}

}  // namespace brontavia::fuzz
