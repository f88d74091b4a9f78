#include "tests/gallery/scenes.h"

#include <QAction>
#include <QMenu>
#include <array>
#include <memory>
#include <utility>

#include "app/form1.h"
#include "app/form2.h"
#include "games/chess/form_aje.h"
#include "games/naval/form_bar.h"
#include "games/strategy/form_strategy.h"
#include "games/three_in_row/form_ter.h"
#include "tests/support/bar_pair.h"
#include "tests/support/cell_named.h"
#include "tests/support/joined_connections.h"
#include "tests/support/window_pair.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

const QString kNoTitle = u"Brontavia"_s;  // of a box without one of its own

// ---- For the user's scripts ----

// The boxes in which both windows tell that the game is over.
void DismissEndings() {
  for (int i = 0; i < 2; ++i) {
    EXPECT_TRUE(Eventually([] { return TopDialog() != nullptr; }));
    OnGui([] { TopDialog()->accept(); });
  }
}

template <typename Form>
const CellContent& Shown(OwnedWindow<Form>& window, CellIndex cell) {
  return window.FG1()->Model().Cell(cell);
}

// Clicks a cell until `watched` shows something else: a window that still waits for its last message to arrive ignores
// clicks.
template <typename Form>
void Play(OwnedWindow<Form>& window, CellIndex cell, CellIndex watched) {
  const CellContent before = Shown(window, watched);
  EXPECT_TRUE(Eventually([&] {
    if (Shown(window, watched) != before) return true;
    window.Click(cell);
    return false;
  })) << cell.Row
      << ", " << cell.Column;
}

template <typename Form>
void Play(OwnedWindow<Form>& window, CellIndex cell) {
  Play(window, cell, cell);
}

template <typename Form>
OwnedWindow<Form>& Other(WindowPair<Form>& pair, const OwnedWindow<Form>& window) {
  return &window == &pair.Server ? pair.Client : pair.Server;
}

// ---- Before the game ----

std::unique_ptr<Connection> ConnectionWith(const QList<OwnAddress>& addresses) {
  auto connection = std::make_unique<TestConnection>();
  connection->Addresses = addresses;
  return connection;
}

}  // namespace

void TakeWindowsBeforeTheGame(Album& album) {
  const ProcessValues values;
  {
    Form1 start(values.ConnectionPort, u"/manual/index.html"_s);
    start.show();
    album.Take(start, u"start"_s);
    start.findChild<QWidget*>(u"Command1(0)"_s)->setFocus();
    album.Take(start, u"server-explained"_s);
    start.findChild<QWidget*>(u"Command1(1)"_s)->setFocus();
    album.Take(start, u"client-explained"_s);
  }
  {
    Form2 selection;
    selection.show();
    album.Take(selection, u"selection"_s);
  }
  OwnedWindow<FormTER> server(Role::Server, values.ConnectionPort,
                              ConnectionWith({{u"192.168.1.37"_s, AddressKind::Cable},
                                              {u"10.8.0.6"_s, AddressKind::VirtualNetwork},
                                              {u"2001:db8:85a3:8d3:1319:8a2e:370:7348"_s, AddressKind::InternetIPv6}}));
  album.Take(*server.Window, u"server"_s);
  OwnedWindow<FormEST> alone(Role::Server, values.ConnectionPort, ConnectionWith({}));
  album.Take(*alone.Window, u"server-without-network"_s);
  OwnedWindow<FormTER> client(Role::Client, values.ConnectionPort, ConnectionWith({}));
  album.Take(*client.Window, u"client"_s);
}

void TakeThreeInRow(Album& album) {
  WindowPair<FormTER> pair;
  const auto play = [&](OwnedWindow<FormTER>& window, int cell, const QString& sign) {
    const CellIndex index{.Row = cell / kTerSide, .Column = cell % kTerSide};
    Play(window, index);
    EXPECT_TRUE(Other(pair, window).ComesToShow(index, sign));
  };
  AsUser([&] {
    pair.Connect();
    album.Take(*pair.Client.Window, u"name"_s);
    pair.TellNames(u"Bartolomé Núñez"_s);  // as long as names are kept
    album.Take(*pair.Server.Window, u"placing"_s);
    for (const auto& [x, o] : {std::pair(0, 4), {1, 8}, {5, 6}}) {
      play(pair.Server, x, u"X"_s);
      play(pair.Client, o, u"O"_s);
    }
    Play(pair.Server, {.Row = 1, .Column = 2});
    album.Take(*pair.Server.Window, u"lifted"_s);
    album.Take(*pair.Client.Window, u"other-moves"_s);
    pair.Server.Click({.Row = 0, .Column = 2});
    DismissEndings();
    album.Take(*pair.Server.Window, u"won"_s);
    album.Take(*pair.Client.Window, u"lost"_s);
  });
}

// ---- Naval battle ----

namespace {

class NavalScene {
 public:
  explicit NavalScene(Album& album) : album_(album) {}

  void Run() {
    pair_.Handshake();
    for (int i = 0; i < 2; ++i) Answer(kNoTitle, u"OK"_s);
    PlaceFleets();
    Fire(pair_.Server, {u"A9"_s, u"B9"_s, u"C3"_s, u"J10"_s});
    Fire(pair_.Client, {u"A1"_s, u"B1"_s, u"E7"_s, u"F7"_s, u"H3"_s});
    Fire(pair_.Server, {u"A3"_s});
    album_.Take(*pair_.Server.Window, u"firing"_s);
    album_.Take(*pair_.Client.Window, u"under-fire"_s);
    Win();
  }

 private:
  static CellIndex Index(const QString& name) { return {.Row = CellNamed(name).Row, .Column = CellNamed(name).Column}; }

  void Place(OwnedWindow<FormBAR>& window, std::size_t ship) {
    for (const QString& end : {kTestFleet.at(ship).Start, kTestFleet.at(ship).End}) window.Click(Index(end));
    EXPECT_TRUE(Eventually([&] { return !Shown(window, Index(kTestFleet.at(ship).End)).Text.isEmpty(); }));
  }

  void PlaceFleets() {
    constexpr std::size_t kBeforeThePicture = 5;
    for (std::size_t ship = 0; ship < kBeforeThePicture; ++ship) Place(pair_.Server, ship);
    pair_.Server.Click(Index(u"J9"_s));
    EXPECT_TRUE(Eventually([&] { return pair_.Server.Text(u"TBEstado"_s).contains(u"fijada"); }));
    OnGui([&] { pair_.Server.FG1()->Model().SetCurrentCell(Index(u"J7"_s)); });
    album_.Take(*pair_.Server.Window, u"placing"_s);
    pair_.Server.Click(Index(u"J9"_s));
    for (std::size_t ship = kBeforeThePicture; ship < kTestFleet.size(); ++ship) Place(pair_.Server, ship);
    Answer(u"Batalla naval"_s, u"Yes"_s);
    Answer(kNoTitle, u"OK"_s);
    for (std::size_t ship = 0; ship < kTestFleet.size(); ++ship) Place(pair_.Client, ship);
    Answer(u"Batalla naval"_s, u"Yes"_s);
    for (int i = 0; i < 2; ++i) Answer(kNoTitle, u"OK"_s);
  }

  void Fire(OwnedWindow<FormBAR>& window, const QStringList& cells) {
    for (const QString& cell : cells) {
      Play(window, Index(cell));
      const QString report = u"en "_s + cell + u':';
      EXPECT_TRUE(Eventually(
          [&] { return TopDialog() != nullptr || Other(pair_, window).Text(u"TBMensajes"_s).contains(report); }));
    }
  }

  void Win() {
    QStringList cells;
    for (const ShipEnds& ship : kTestFleet) {
      const Coordinate end = CellNamed(ship.End);
      for (Coordinate cell = CellNamed(ship.Start); cell.Column <= end.Column; ++cell.Column) {
        const QString name = QChar(u'A' + cell.Column - 1) + QString::number(cell.Row);
        if (!QStringList{u"A9"_s, u"B9"_s, u"C3"_s, u"A3"_s}.contains(name)) cells << name;
      }
    }
    Fire(pair_.Server, cells);
    DismissEndings();
    album_.Take(*pair_.Server.Window, u"won"_s);
    album_.Take(*pair_.Client.Window, u"lost"_s);
  }

  Album& album_;
  WindowPair<FormBAR> pair_;
};

}  // namespace

void TakeNavalBattle(Album& album) {
  NavalScene scene(album);
  AsUser([&] { scene.Run(); });
}

// ---- The strategy games ----

namespace {

// An army in the own zone as its player sees it: rows from the innermost one down, a hexadecimal digit for each rank.
using Layout = QStringList;

struct Step {
  QString From;
  QString To;
};

// What is played: the server begins, loses a fight and takes the flag. Cells as the mover calls them.
struct StrategyPlan {
  const StrategyGame& Game;
  Layout ServerArmy;
  Layout ClientArmy;
  Step ServerBegins;
  Step ClientAnswers;
  Step Fight;
  Step ClientGoesBack;
  Step FlagTaken;
};

template <typename Form>
class StrategyScene {
 public:
  StrategyScene(Album& album, StrategyPlan plan) : album_(album), plan_(std::move(plan)) {}

  void Run() {
    pair_.Handshake();
    PlaceArmies();
    Move(pair_.Server, plan_.ServerBegins);
    Answer(kNoTitle, u"OK"_s);
    Move(pair_.Client, plan_.ClientAnswers);
    Answer(kNoTitle, u"OK"_s);
    Play(pair_.Server, Index(plan_.Fight.From));
    album_.Take(*pair_.Server.Window, u"selected"_s);
    Play(pair_.Server, Index(plan_.Fight.From));
    Move(pair_.Server, plan_.Fight);
    EXPECT_TRUE(Eventually([] { return TopDialog() != nullptr; }));
    album_.Take(*pair_.Client.Window, u"attacked"_s);
    Answer(kNoTitle, u"OK"_s);
    album_.Take(*pair_.Client.Window, u"to-move"_s);
    album_.Take(*pair_.Server.Window, u"fought"_s);
    Move(pair_.Client, plan_.ClientGoesBack);
    Answer(kNoTitle, u"OK"_s);
    Play(pair_.Server, Index(plan_.FlagTaken.From));
    pair_.Server.Click(Index(plan_.FlagTaken.To));
    DismissEndings();
    album_.Take(*pair_.Server.Window, u"won"_s);
    album_.Take(*pair_.Client.Window, u"lost"_s);
  }

 private:
  [[nodiscard]] CellIndex Index(const QString& name) const {
    const Coordinate cell = CellNamed(name);
    return {.Row = plan_.Game.Variant.Rows + 1 - cell.Row, .Column = cell.Column};
  }
  void Move(OwnedWindow<Form>& window, const Step& step) {
    Play(window, Index(step.From));
    Play(window, Index(step.To), Index(step.From));
  }

  void Place(OwnedWindow<Form>& window, CellIndex cell, int rank) {
    window.Click(cell);
    EXPECT_TRUE(Eventually([] { return QApplication::activePopupWidget() != nullptr; }));
    Post([rank] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      menu->setActiveAction(menu->actions().at(rank - 1));
      QTest::keyClick(menu, Qt::Key_Return);
    });
    EXPECT_TRUE(Eventually([&] { return !Shown(window, cell).Text.isEmpty(); }));
  }

  // `some_placed` follows the first row.
  void PlaceArmy(OwnedWindow<Form>& window, const Layout& army, const std::function<void()>& some_placed) {
    for (int row = 0; row < army.size(); ++row) {
      for (int column = 0; column < army[row].size(); ++column) {
        Place(window, {plan_.Game.Variant.Rows + 1 - plan_.Game.Variant.ZoneRows + row, column + 1},
              army[row].mid(column, 1).toInt(nullptr, 16));
      }
      if (row == 0) some_placed();
    }
    Answer(plan_.Game.PlacedTitle.toString(), u"Yes"_s);
  }

  void PlaceArmies() {
    EXPECT_TRUE(Eventually([&] { return pair_.Server.Text(u"TBMensajes"_s).endsWith(u"Coloque su ejército"); }));
    PlaceArmy(pair_.Server, plan_.ServerArmy, [&] { album_.Take(*pair_.Server.Window, u"placing"_s); });
    Answer(kNoTitle, u"OK"_s);
    PlaceArmy(pair_.Client, plan_.ClientArmy, [&] { album_.Take(*pair_.Client.Window, u"placing-second"_s); });
    const int boxes = plan_.Game.TellsReadyOpponent ? 3 : 2;
    for (int i = 0; i < boxes; ++i) Answer(kNoTitle, u"OK"_s);
  }

  Album& album_;
  StrategyPlan plan_;
  WindowPair<Form> pair_;
};

}  // namespace

void TakeStrategy(Album& album) {
  StrategyScene<FormEST> scene(album,
                               {.Game = kGameEST,
                                .ServerArmy = {u"C4445555B4"_s, u"44445AA999"_s, u"8888777766"_s, u"6632222221"_s},
                                .ClientArmy = {u"14445555CB"_s, u"44445AA999"_s, u"8888777766"_s, u"6632222224"_s},
                                .ServerBegins = {u"E4"_s, u"E5"_s},
                                .ClientAnswers = {u"E4"_s, u"E5"_s},
                                .Fight = {u"B4"_s, u"B7"_s},
                                .ClientGoesBack = {u"E5"_s, u"E4"_s},
                                .FlagTaken = {u"J4"_s, u"J7"_s}});
  AsUser([&] { scene.Run(); });
}

void TakeMiniStrategy(Album& album) {
  StrategyScene<FormMES> scene(album, {.Game = kGameMES,
                                       .ServerArmy = {u"C444554"_s, u"5BA9988"_s, u"7732221"_s},
                                       .ClientArmy = {u"144C554"_s, u"5BA9988"_s, u"7732224"_s},
                                       .ServerBegins = {u"C3"_s, u"C4"_s},
                                       .ClientAnswers = {u"C3"_s, u"C4"_s},
                                       .Fight = {u"D3"_s, u"D6"_s},
                                       .ClientGoesBack = {u"C4"_s, u"C3"_s},
                                       .FlagTaken = {u"G3"_s, u"G6"_s}});
  AsUser([&] { scene.Run(); });
}

// ---- Chess ----

namespace {

CellIndex SquareOfWhite(const QString& name) {
  return {.Row = 9 - name.at(1).digitValue(), .Column = name.at(0).unicode() - u'a' + 1};
}

}  // namespace

void TakeChess(Album& album) {
  WindowPair<FormAje> pair;
  const auto move = [&](OwnedWindow<FormAje>& mover, const QString& from, const QString& to) {
    Play(mover, SquareOfWhite(from));
    Play(mover, SquareOfWhite(to));
    EXPECT_TRUE(Other(pair, mover).ComesToShow(SquareOfWhite(to), Shown(mover, SquareOfWhite(to)).Text));
  };
  AsUser([&] {
    pair.Handshake();
    EXPECT_TRUE(Eventually([&] { return pair.Server.Text(u"TBMensajes"_s).endsWith(u"primer movimiento."); }));
    album.Take(*pair.Server.Window, u"start"_s);
    move(pair.Server, u"e2"_s, u"e4"_s);
    move(pair.Client, u"e7"_s, u"e5"_s);
    move(pair.Server, u"g1"_s, u"f3"_s);
    move(pair.Client, u"b8"_s, u"c6"_s);
    EXPECT_TRUE(Eventually([&] { return pair.Server.Text(u"TBReloj"_s) != u"00:00 / 00:00"; }));
    album.Take(*pair.Server.Window, u"opening"_s);
    album.Take(*pair.Client.Window, u"opening-of-black"_s);
    Post([&] { pair.Server.Control<QAction>(u"MnuOpcApr"_s)->trigger(); });
    Play(pair.Server, SquareOfWhite(u"f1"_s));
    album.Take(*pair.Server.Window, u"learning"_s);
  });
}

}  // namespace brontavia::test
