#include "games/chess/chess_display.h"

#include "games/chess/move_record.h"
#include "games/chess/piece_letters.h"
#include "games/chess/position_box.h"
#include "games/chess/square_text.h"
#include "text/qt_text.h"

namespace brontavia {
namespace {

constexpr int kSquareSize = 600;  // twips
constexpr int kHeaderSize = 300;
constexpr BoardShape kShape{.Rows = kBoardSide + 1,
                            .Columns = kBoardSide + 1,
                            .HeaderCells = 1,
                            .CellWidth = kSquareSize,
                            .CellHeight = kSquareSize,
                            .HeaderSize = kHeaderSize};

}  // namespace

ChessDisplay::ChessDisplay(const ChessGame& game, Screen& screen)
    : game_(game), screen_(screen), fg1_(kShape, [this](CellIndex cell) { return DescribeCell(cell); }) {
  ShowHeaders();
  fg1_.SetCurrentCell(IndexOf({.Column = 1, .Row = 1}));  // where White's pieces stand, at the lower edge
}

// ---- After a change of the game ----

void ChessDisplay::DrawBoard() {
  for (int column = 1; column <= kBoardSide; ++column) {
    for (int row = 1; row <= kBoardSide; ++row) {
      const Coordinate square{.Column = column, .Row = row};
      CellContent content{.Marks = MarksOf(square)};
      if (const int piece = game_.Position().Board.At(square); piece != kNoPiece)
        content.Text = QChar(kSpanishLetters.at(static_cast<std::size_t>(piece - 1)));
      fg1_.SetCell(IndexOf(square), content);
    }
  }
}

Marks ChessDisplay::MarksOf(Coordinate square) const {
  Marks marks;
  if (game_.HasSelection() && square == game_.Selection().Source) marks |= Mark::Selected;
  if (last_move_ && (square == last_move_->Moved.Source || square == last_move_->Target)) marks |= Mark::LastMove;
  if (learning_mode_ && game_.Targets().Holds(square)) marks |= Mark::Reachable;
  return marks;
}

void ChessDisplay::ShowPositionBox() { screen_.SetText(Box::TBEntorno, ToQString(PositionBoxText(game_.Position()))); }

void ChessDisplay::ShowPosition() {
  DrawBoard();
  ShowPositionBox();
}

void ChessDisplay::ShowNewGame() {
  last_move_.reset();
  ShowPosition();
  screen_.SetText(Box::TBJugadas, ToQString(MoveListStart(game_.Position())));
}

void ChessDisplay::ShowMove(const ChessMove& move) {
  last_move_ = move;
  ShowPosition();
  const MoveRecord record = RecordMove(game_.Position(), move);
  screen_.AddMessage(ToQString(record.Sentence));
  screen_.AppendText(Box::TBJugadas, ToQString(record.ListText));
}

// ---- How it is shown ----

void ChessDisplay::ToggleLearningMode() {
  learning_mode_ = !learning_mode_;
  DrawBoard();
}

void ChessDisplay::TurnBoard() {
  board_flipped_ = !board_flipped_;
  ShowHeaders();
  DrawBoard();
}

void ChessDisplay::ShowHeaders() {
  for (int place = 1; place <= kBoardSide; ++place) {
    const Coordinate shown = SquareOf({.Row = place, .Column = place});
    fg1_.SetCell({.Row = 0, .Column = place}, {.Text = QChar(u'a' + shown.Column - 1)});
    fg1_.SetCell({.Row = place, .Column = 0}, {.Text = QString::number(shown.Row)});
  }
}

CellIndex ChessDisplay::IndexOf(Coordinate square) const {
  const Coordinate cell = ThroughGrid(square, board_flipped_);
  return {.Row = cell.Row, .Column = cell.Column};
}

Coordinate ChessDisplay::SquareOf(CellIndex cell) const {
  return ThroughGrid({.Column = cell.Column, .Row = cell.Row}, board_flipped_);
}

QString ChessDisplay::DescribeCell(CellIndex cell) const {
  if (fg1_.IsHeader(cell)) return fg1_.Cell(cell).Text;
  return ToQString(DescribeSquare(game_.Position().Board, SquareOf(cell), game_.Targets(), learning_mode_));
}

}  // namespace brontavia
