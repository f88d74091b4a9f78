#include "games/chess/form_aje.h"

#include <QMenuBar>
#include <utility>

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

constexpr int kPositionLines = 6;
constexpr int kMovesLines = 2;

}  // namespace

FormAje::FormAje(ProcessValues& values, std::unique_ptr<Connection> connection)
    : GameWindow(kFormAje, std::move(connection)),
      flow_(MakeSeams(values), SeedOfWindow()),
      board_(std::make_unique<BoardView>(flow_.FG1(), painter_)) {
  AddLog(Box::TBJugadas, u"TBJugadas"_s, u"Jugadas"_s, kMovesLines);
  AddTable(Box::TBEntorno, u"TBEntorno"_s, u"Posición"_s, kPositionLines);
  AddTable(Box::TBReloj, u"TBReloj"_s, u"Relojes"_s, 1);
  QMenuBar* bar = AddMenuBar();
  for (const ChessMenu& entries : kChessMenus) {
    QMenu* menu = bar->addMenu(entries.Caption.toString());
    menu->setObjectName(entries.Name.toString());
    for (const ChessMenuEntry& entry : entries.Entries) AddCommand(*menu, entry);
  }
  connect(board_.get(), &BoardView::CellClicked, &flow_, &ChessFlow::BoardClicked);
  connect(board_.get(), &BoardView::KeyPressed, &flow_, &ChessFlow::BoardKeyPressed);
  Attach(flow_, *board_);
}

void FormAje::AddCommand(QMenu& menu, const ChessMenuEntry& entry) {
  QAction* action = menu.addAction(entry.Caption.toString());
  action->setObjectName(entry.Name.toString());
  action->setCheckable(entry.Checkable);
  const auto show = [this, action, &entry] {
    action->setEnabled(flow_.IsAvailable(entry));
    action->setChecked(flow_.IsChecked(entry.Command));
  };
  show();
  connect(&flow_, &ChessFlow::CommandsChanged, action, show);
  connect(action, &QAction::triggered, &flow_, [this, show, &entry] {
    show();  // a checkable action has switched itself; only the flow's state counts
    flow_.Run(entry.Command);
  });
}

}  // namespace brontavia
