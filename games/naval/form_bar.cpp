#include "games/naval/form_bar.h"

#include <QFontDatabase>
#include <utility>

#include "ui/text_box.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

constexpr int kShipLines = 9;  // title, headings, seven ships

}  // namespace

FormBAR::FormBAR(ProcessValues& values, std::unique_ptr<Connection> connection)
    : GameWindow(kFormBAR, std::move(connection)),
      flow_(MakeSeams(values), SeedOfWindow()),
      board_(std::make_unique<BoardView>(flow_.FG1(), painter_)),
      own_fleet_(std::make_unique<BoardView>(flow_.FG2(), own_fleet_painter_)) {
  own_fleet_->setObjectName(u"FG2"_s);
  own_fleet_->setAccessibleName(u"Flota propia"_s);
  own_fleet_->ShowCursorOnlyWithFocus();  // nothing is chosen there, and it would look like a shot
  TextBox* ships = AddTable(Box::TBBarcos, u"TBBarcos"_s, u"Barcos"_s, kShipLines);
  ships->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  ships->setLineWrapMode(QPlainTextEdit::NoWrap);
  // All of it always fits. Bars would come for the empty line at the end, and for the width of larger writing.
  ships->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  ships->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  AddSmallBoard(*own_fleet_);
  connect(board_.get(), &BoardView::CellClicked, &flow_, &NavalFlow::BoardClicked);
  connect(board_.get(), &BoardView::KeyPressed, &flow_, &NavalFlow::BoardKeyPressed);
  Attach(flow_, *board_);
}

}  // namespace brontavia
