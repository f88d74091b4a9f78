// ChessFlow: nothing of a window is written, sent or opened once it has ended, wherever it ended.
#include <iterator>

#include "tests/games/chess/profile.h"
#include "tests/support/aje_pair.h"
#include "tests/support/ending_sessions.h"
#include "tests/support/random_games.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

using Draw = std::function<int(int)>;

QString AnySquare(const Draw& below) {
  return QChar(u'a' + below(kBoardSide)) + QString::number(1 + below(kBoardSide));
}

// Mostly where the piece picked up can go, so that moves come about.
void Click(AjeCopy& copy, const Draw& below) {
  const TargetList& targets = copy.Flow.Game().Targets();
  if (targets.size() == 0 || below(6) == 0) {
    copy.Click(AnySquare(below));
    return;
  }
  const Coordinate target = *std::next(targets.begin(), below(static_cast<int>(targets.size())));
  copy.Click(QChar(u'a' + target.Column - 1) + QString::number(target.Row));
}

void Act(AjeCopy& copy, const Draw& below) {
  static constexpr std::array kKeys{Qt::Key_Escape, Qt::Key_Delete, Qt::Key_Menu, Qt::Key_F5};
  const int what = below(10);
  if (what < 4) {
    Click(copy, below);
  } else if (what < 6) {
    copy.Flow.BoardKeyPressed(kKeys.at(static_cast<std::size_t>(below(4))));
  } else {
    const ChessMenu& menu = kChessMenus.at(static_cast<std::size_t>(below(2)));
    const ChessMenuEntry& entry = menu.Entries[static_cast<std::size_t>(below(static_cast<int>(menu.Entries.size())))];
    if (copy.Flow.IsAvailable(entry)) copy.Flow.Run(entry.Command);
  }
}

TEST(ChessEnding, NothingIsWrittenAfterAnEndInsideABoxAMenuOrAWait) {
  const Profile files;
  const QString file = files.InFolder(u"promotion.fen"_s);
  const QString position = u"7r/P7/8/8/8/8/6p1/R7/B - - 0 1"_s;
  QFile written(file);
  ASSERT_TRUE(written.open(QIODevice::WriteOnly));
  ASSERT_GT(written.write(position.toLatin1()), 0);
  written.close();
  const EndingGame<AjeCopy> game{.Act = Act,
                                 .Reads = {u"datospartida|"_s + position,
                                           u"datospartida|7r/P7/8/8/8/8/6p1/R7/N - - 0 1"_s,
                                           u"JUG|1 7 1 8 False 5"_s,
                                           u"JUG|7 2 7 1 False 5"_s,
                                           u"JUG|5 2 5 4 False 0"_s,
                                           u"JMate|"_s,
                                           u"Abandona|"_s,
                                           u"SolTablas|"_s,
                                           u"SolTablasSi|"_s,
                                           u"SolTablasNo|"_s,
                                           u"cargpartida|x.fen"_s,
                                           u"cargpsi|"_s,
                                           u"cargpno|"_s,
                                           u"cargpturnos|0 1 0"_s,
                                           u"cargpturnos|1 0 1"_s,
                                           u"modolibre|"_s,
                                           u"JMate|SolTablas|modolibre|"_s,
                                           u"Nombre|x"_s,
                                           u"turno|3"_s,
                                           u"Turnodef|10"_s,
                                           u"Seguir|Si"_s},
                                 .File = file};
  EndSessionsInsideEverything<AjePair>(kRandomGames / 5, game);
}

}  // namespace
}  // namespace brontavia::test
