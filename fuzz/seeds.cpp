// Writes scripts to begin a corpus with: the two sides of games at random, each as its own window lives them. A read is
// what the other side has sent since the last one.
//   fuzz_seeds DIRECTORY      a directory for each window is made in it
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "fuzz/chess.h"
#include "fuzz/naval.h"
#include "fuzz/scripted_events.h"
#include "fuzz/strategy.h"
#include "fuzz/three_in_row.h"
#include "games/strategy/movement.h"

namespace brontavia::fuzz {
namespace {

class Random {
 public:
  explicit Random(unsigned seed) : numbers_(seed) {}
  int Below(int bound) { return static_cast<int>(numbers_() % static_cast<unsigned>(bound)); }
  bool OneIn(int count) { return Below(count) == 0; }

 private:
  std::mt19937 numbers_;
};

std::string Letter(int number) { return {static_cast<char>('a' + number)}; }

Step ClickOn(CellIndex cell) { return {.What = 'c', .Text = Letter(cell.Row) + Letter(cell.Column)}; }

CellIndex AnyCell(const BoardModel& grid, Random& random) {
  const int headers = grid.Shape().HeaderCells;
  return {.Row = headers + random.Below(grid.Shape().Rows - headers),
          .Column = headers + random.Below(grid.Shape().Columns - headers)};
}

// ---- What a player of each game would do next ----

Step Suggest(const ThreeInRowFlow& flow, Random& random) { return ClickOn(AnyCell(flow.FG1(), random)); }

Step Suggest(const NavalFlow& flow, Random& random) {
  if (random.OneIn(30)) return {.What = 'k', .Text = Letter(random.Below(2))};
  return ClickOn(AnyCell(flow.FG1(), random));
}

Step Suggest(const StrategyFlow& flow, Random& random) {
  if (flow.PlacementMode() || random.OneIn(20)) return {.What = 'k', .Text = Letter(random.Below(3))};
  const auto& board = flow.StrategyBoard();
  const auto selected = flow.SelectedCell();
  const auto mover = selected ? board.PieceAt(*selected) : std::nullopt;
  for (int tries = 0; tries < 200; ++tries) {
    const Coordinate cell{.Column = 1 + random.Below(board.Variant().Columns),
                          .Row = 1 + random.Below(board.Variant().Rows)};
    const auto piece = board.PieceAt(cell);
    const bool own = piece && piece->Side == flow.OwnPlayer();
    const bool fits = mover ? !own && CheckMoveRange(board, mover->Rank, *selected, cell) == MoveRange::Valid
                            : own && IsMovable(piece->Rank) && cell.Row >= board.Variant().ZoneRows;
    if (fits) return ClickOn(flow.IndexOf(cell));
  }
  return ClickOn(AnyCell(flow.FG1(), random));
}

Step Suggest(const ChessFlow& flow, Random& random) {
  if (random.OneIn(15)) return {.What = 'm', .Text = Letter(random.Below(13))};
  if (random.OneIn(25)) return {.What = 'k', .Text = Letter(random.Below(4))};
  if (random.OneIn(15)) return {.What = 's', .Text = Letter(random.Below(16))};
  const ChessGame& game = flow.Game();
  if (game.HasSelection() && game.Targets().size() > 0) {
    return ClickOn(flow.IndexOf(*(game.Targets().begin() + random.Below(static_cast<int>(game.Targets().size())))));
  }
  for (int tries = 0; tries < 200; ++tries) {
    const Coordinate square{.Column = 1 + random.Below(kBoardSide), .Row = 1 + random.Below(kBoardSide)};
    if (game.Position().Board.ColourAt(square) == game.Position().SideToMove) return ClickOn(flow.IndexOf(square));
  }
  return ClickOn(AnyCell(flow.FG1(), random));
}

// ---- Two windows that play each other ----

template <typename Game>
class Pair {
 public:
  Pair(unsigned seed, bool placed)
      : random_(seed), server_(*this, placed ? 'P' : 'S'), client_(*this, placed ? 'Q' : 'C') {
    server_.Other = &client_;
    client_.Other = &server_;
  }

  // `length`: steps at most of both together.
  void Play(int length) {
    server_.Begin();
    client_.Begin();
    for (int step = 0; step < length; ++step) {
      Side& side = random_.OneIn(2) ? server_ : client_;
      if (!side.Play()) return;
    }
  }

  [[nodiscard]] const std::string& ServersScript() const { return server_.Lines; }
  [[nodiscard]] const std::string& ClientsScript() const { return client_.Lines; }

 private:
  struct Side {
    Side(Pair& pair, char opening)
        : Lines{opening, '\n'},
          random(pair.random_),
          opening_(OpeningOf<Game>(opening)),
          steps_(opening_.Steps),
          session_(opening_, [this] { return Next(); }) {}

    // Plays what the opening tells; its steps stand in no script, and what it sends is in the other's opening.
    void Begin() {
      session_.Flow().Load();
      while (!steps_.AtEnd()) Play();
      Require(session_.Flow().State().TurnSettled && !session_.Seams().Boxes.IsShowing(), "an opening is complete");
      session_.Seams().Connection.Sent.clear();
    }

    // False when the window has gone.
    bool Play() {
      ScriptedEvents::Instance().WhenIdle = [this] { session_.Seams().PlayStep(); };
      return session_.Seams().PlayStep();
    }

    std::optional<Step> Next() {
      if (auto step = steps_.Next()) return step;
      Step step = Choose();
      Lines += LineOf(step);
      return step;
    }

    Step Choose() {
      if (const auto* box = session_.Seams().Boxes.Topmost()) return AnswerTo(box->Is);
      auto& sent = Other->session_.Seams().Connection.Sent;
      if (!sent.empty()) {
        std::string read;
        for (const QString& text : std::exchange(sent, {})) read += text.toStdString();
        return {.What = 'r', .Text = read};
      }
      return Suggest(session_.Flow(), random);
    }

    Step AnswerTo(ScriptedBoxes::Kind kind) {
      switch (kind) {
        case ScriptedBoxes::Kind::Message:
          return {.What = 'a', .Text = random.OneIn(8) ? "n" : "y"};
        case ScriptedBoxes::Kind::Input:
          return {.What = 'a', .Text = random.OneIn(4) ? "2:30" : "1"};
        case ScriptedBoxes::Kind::Menu:
          return {.What = 'a', .Text = Letter(random.Below(12))};
        case ScriptedBoxes::Kind::File:
          break;
      }
      return {.What = 'a', .Text = "4k3/P7/8/8/8/8/8/4K2R w K - 0 1"};
    }

    Side* Other = nullptr;
    std::string Lines;
    Random& random;
    Opening opening_;
    Script steps_;
    Session<Game> session_;
  };

  Random random_;
  Side server_;
  Side client_;
};

bool Write(const std::filesystem::path& path, const std::string& content) {
  std::ofstream file(path, std::ios::binary);
  file << content;
  file.close();
  return !file.fail();
}

template <typename Game>
bool WriteGames(const std::filesystem::path& directory) {
  constexpr unsigned kGames = 60;
  std::filesystem::create_directories(directory);
  for (unsigned seed = 0; seed < kGames; ++seed) {
    Pair<Game> pair(seed, seed % 2 == 1);
    pair.Play(20 + 2 * static_cast<int>(seed));
    const std::string name = std::to_string(seed);
    if (!Write(directory / ("server" + name), pair.ServersScript())) return false;
    if (!Write(directory / ("client" + name), pair.ClientsScript())) return false;
  }
  // The handshake by itself, which the games begin after.
  return Write(directory / "server", "s\n" + Game::Begun(Role::Server)) &&
         Write(directory / "client", "c\n" + Game::Begun(Role::Client));
}

}  // namespace
}  // namespace brontavia::fuzz

int main(int argc, char* argv[]) {
  using namespace brontavia;
  using namespace brontavia::fuzz;
  if (argc != 2) {
    std::fprintf(stderr, "usage: fuzz_seeds DIRECTORY\n");
    return 2;
  }
  const std::filesystem::path directory(argv[1]);
  const bool written = WriteGames<ThreeInRow>(directory / "three_in_row") && WriteGames<Naval>(directory / "naval") &&
                       WriteGames<Strategy<kGameMES>>(directory / "mini_strategy") &&
                       WriteGames<Strategy<kGameEST>>(directory / "strategy") && WriteGames<Chess>(directory / "chess");
  return written ? 0 : 1;
}
