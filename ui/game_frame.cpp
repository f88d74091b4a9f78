#include "ui/game_frame.h"

#include <QEvent>
#include <QFontMetrics>
#include <QLabel>
#include <algorithm>

#include "ui/board_caption.h"
#include "ui/board_view.h"
#include "ui/key_line.h"
#include "ui/look.h"
#include "ui/strip.h"
#include "ui/text_box.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

constexpr int kNarrowBelow = 900;          // pixels of width
constexpr int kKeysFrom = 30;              // times the user's font, of height
constexpr qreal kWorthMovingTexts = 1.05;  // cells that much larger are worth a log of two or three lines
constexpr int kLeastWidth = 600;
constexpr int kLeastColumn = 300;
constexpr int kMostColumn = 420;
constexpr int kStatusLines = 2;
constexpr qreal kCaptionTimes = 0.92;  // of the user's font
constexpr qreal kStatusTimes = 1.15;
constexpr int kStatusShare = 2;  // of the width, where the status stands beside the messages
constexpr int kMessagesShare = 3;
constexpr int kSmallestBoardCell = 24;
constexpr int kSmallestCell = 14;         // of the small board
constexpr qreal kSmallBoardTimes = 0.45;  // of a cell of the big one
constexpr int kCaptionToSmallBoard = 8;

int LineHeight(const QFont& font) { return QFontMetrics(font).height(); }

QLabel* MakeCaption(QWidget& control, QWidget* parent) {
  auto* caption = new QLabel(control.accessibleName(), parent);
  caption->setTextFormat(Qt::PlainText);
  caption->setBuddy(&control);
  return caption;
}

}  // namespace

GameFrame::GameFrame()
    : strip_(new Strip(this)),
      status_(MakeText(u"TBEstado"_s, u"Estado"_s, kStatusLines, false)),
      board_caption_(new BoardCaption(this)),
      key_line_(new KeyLine(this)) {
  setObjectName(u"FrJuego"_s);
  board_caption_->hide();
}

GameFrame::Captioned GameFrame::MakeText(const QString& name, const QString& accessible_name, int lines, bool grows) {
  auto* box = new TextBox(name, accessible_name, this);
  return {.Caption = MakeCaption(*box, this), .Box = box, .Lines = lines, .Grows = grows};
}

TextBox* GameFrame::AddLog(const QString& name, const QString& accessible_name, int lines) {
  return column_.emplace_back(MakeText(name, accessible_name, lines, true)).Box;
}

TextBox* GameFrame::AddTable(const QString& name, const QString& accessible_name, int lines) {
  return column_.emplace_back(MakeText(name, accessible_name, lines, false)).Box;
}

void GameFrame::SetSmallBoard(BoardView& board) {
  small_board_ = &board;
  board.setParent(this);
  small_board_caption_ = MakeCaption(board, this);
}

void GameFrame::SetBoard(BoardView& board) {
  board_ = &board;
  board.setParent(this);
}

// ---- What the flow shows ----

void GameFrame::ShowScoreboard(const Scoreboard& scoreboard) { strip_->Show(scoreboard); }

void GameFrame::ShowKeys(const KeyHints& keys) { key_line_->Show(keys); }

void GameFrame::ShowBoardCaption(const QString& caption, PlayerSign owner) {
  board_caption_->Show(caption, owner);
  board_caption_->show();
  Arrange();
}

// ---- Events ----

void GameFrame::resizeEvent(QResizeEvent* /*event*/) { Arrange(); }

void GameFrame::changeEvent(QEvent* event) {
  QGroupBox::changeEvent(event);
  if (event->type() != QEvent::FontChange && event->type() != QEvent::PaletteChange) return;
  updateGeometry();
  Arrange();
}

// ---- Measures ----

const GameFrame::Spacing& GameFrame::Gaps() const { return width() < kNarrowBelow ? kNarrow : kWide; }

bool GameFrame::HasRoomForKeys() const {
  const int with_keys = minimumSizeHint().height() + Gaps().AboveKeys + key_line_->sizeHint().height();
  return height() >= std::max<qreal>(with_keys, kKeysFrom * look::PixelsOf(font()));
}

int GameFrame::CaptionHeight() const { return LineHeight(look::Scaled(font(), kCaptionTimes)) + Gaps().CaptionToBox; }

int GameFrame::BoardCaptionHeight() const {
  return board_caption_->isHidden() ? 0 : LineHeight(board_caption_->font()) + Gaps().CaptionToBox;
}

QFont GameFrame::FullFont(const TextBox& box) const {
  QFont full = box.font();
  full.setPixelSize(qRound(look::PixelsOf(font())));
  full.setStretch(QFont::AnyStretch);
  return full;
}

int GameFrame::StatusHeight() const { return TextBox::HeightFor(status_.Lines, look::Scaled(font(), kStatusTimes)); }

int GameFrame::FullHeight(const Captioned& text) const {
  return CaptionHeight() + TextBox::HeightFor(text.Lines, FullFont(*text.Box));
}

int GameFrame::LeastHeight(const Captioned& text) const {
  if (text.Grows) return FullHeight(text);
  QFont least = text.Box->font();
  least.setPixelSize(look::kSmallestReadable);
  return CaptionHeight() + TextBox::HeightFor(text.Lines, least);
}

int GameFrame::LeastColumnHeight() const {
  int height = Gaps().BetweenRows * (static_cast<int>(column_.size()) - 1);
  for (const Captioned& text : column_) height += LeastHeight(text);
  if (small_board_ != nullptr) {
    height += Gaps().BetweenRows + small_board_->SizeWithCells(kSmallestCell).height();
  }
  return height;
}

QSize GameFrame::minimumSizeHint() const {
  const QSize board = board_->SizeWithCells(kSmallestBoardCell);
  const int texts_beside = column_.size() > 1 ? kNarrow.BetweenColumns + kLeastColumn : 0;
  const int board_column =
      BoardCaptionHeight() + board.height() + Gaps().BetweenRows + CaptionHeight() + StatusHeight();
  return {
      std::max(kLeastWidth, 2 * kNarrow.Side + board.width() + texts_beside),
      Gaps().Top + strip_->minimumSizeHint().height() + std::max(board_column, LeastColumnHeight()) + Gaps().Bottom};
}

// ---- Places ----

void GameFrame::Arrange() {
  if (board_ == nullptr) return;
  WriteInUsersFont();
  const Spacing& gaps = Gaps();
  board_->SetRingGap(gaps.RingGap);
  QRect content = rect().adjusted(gaps.Side, gaps.Top, -gaps.Side, -gaps.Bottom);
  strip_->setGeometry(content.x(), content.y(), content.width(), strip_->heightForWidth(content.width()));
  content.setTop(strip_->geometry().bottom() + 1);
  key_line_->setVisible(HasRoomForKeys());
  if (HasRoomForKeys()) {
    const int height = key_line_->sizeHint().height();
    key_line_->setGeometry(content.x(), content.bottom() + 1 - height, content.width(), height);
    content.adjust(0, 0, 0, -height - gaps.AboveKeys);
  }
  const QRect beside = BoardAreaBeside(content);
  const QRect below = BoardAreaBelow(content);
  // Only the messages can stand below.
  const bool texts_beside = column_.size() > 1 || board_->CellSizeIn(below.size()).height() <
                                                      kWorthMovingTexts * board_->CellSizeIn(beside.size()).height();
  const QRect& board_area = texts_beside ? beside : below;
  PlaceBoard(board_area);
  const QRect under(content.x(), board_area.bottom() + 1 + gaps.BetweenRows, content.width(),
                    content.bottom() - board_area.bottom() - gaps.BetweenRows);
  if (texts_beside) {
    Place(status_, {under.topLeft(), QSize(board_area.width(), under.height())});
    PlaceColumn(content.adjusted(board_area.width() + gaps.BetweenColumns, 0, 0, 0));
    return;
  }
  const int status_width = (under.width() - gaps.BetweenColumns) * kStatusShare / (kStatusShare + kMessagesShare);
  Place(status_, {under.topLeft(), QSize(status_width, under.height())});
  Place(column_.front(), under.adjusted(status_width + gaps.BetweenColumns, 0, 0, 0));
}

void GameFrame::WriteInUsersFont() {
  QPalette muted = palette();
  muted.setColor(QPalette::WindowText, look::ColoursOf(palette()).Muted);
  const auto mute = [&](QLabel* caption) {
    caption->setFont(look::Scaled(font(), kCaptionTimes));
    caption->setPalette(muted);
  };
  mute(status_.Caption);
  status_.Box->FitText(look::Scaled(font(), kStatusTimes));
  for (const Captioned& text : column_) {
    mute(text.Caption);
    if (!text.Grows) text.Box->FitText(FullFont(*text.Box));
  }
  if (small_board_caption_ != nullptr) mute(small_board_caption_);
  board_caption_->setFont(look::Scaled(font(), 1, true));
}

void GameFrame::Place(const Captioned& text, QRect area) const {
  const int caption = CaptionHeight();
  text.Caption->setGeometry(area.x(), area.y(), area.width(), caption - Gaps().CaptionToBox);
  text.Box->setGeometry(area.adjusted(0, caption, 0, 0));
}

QRect GameFrame::BoardAreaBeside(const QRect& content) const {
  const Spacing& gaps = Gaps();
  const int height = content.height() - gaps.BetweenRows - CaptionHeight() - StatusHeight();
  const int wanted = board_->SizeIn({content.width(), height - BoardCaptionHeight()}).width();
  const int column = std::clamp(content.width() - gaps.BetweenColumns - wanted, kLeastColumn, kMostColumn);
  return {content.topLeft(), QSize(content.width() - gaps.BetweenColumns - column, height)};
}

QRect GameFrame::BoardAreaBelow(const QRect& content) const {
  const int box = TextBox::HeightFor(Gaps().LinesBelow, font());
  return content.adjusted(0, 0, 0, -Gaps().BetweenRows - CaptionHeight() - box);
}

void GameFrame::PlaceBoard(const QRect& area) {
  const int caption = BoardCaptionHeight();
  QRect place({}, board_->SizeIn(area.size().shrunkBy({0, caption, 0, 0})));
  place.moveCenter(area.adjusted(0, caption, 0, 0).center());
  board_->setGeometry(place);
  board_caption_->setGeometry(place.x(), place.y() - caption, place.width(), LineHeight(board_caption_->font()));
}

void GameFrame::PlaceColumn(const QRect& column) {
  // What gives way last gets its share first: tables, then the small board, then logs.
  int spare = std::max(0, column.height() - LeastColumnHeight());
  std::vector<int> heights;
  int wanted = 0;
  for (const Captioned& text : column_) {
    heights.push_back(LeastHeight(text));
    wanted += FullHeight(text) - heights.back();
  }
  const int given = std::min(spare, wanted);
  spare -= given;
  for (std::size_t i = 0; wanted > 0 && i < column_.size(); ++i) {
    heights[i] += (FullHeight(column_[i]) - heights[i]) * given / wanted;
  }
  if (small_board_ != nullptr) {
    PlaceSmallBoard(column, spare);
    spare -= small_board_->height() - small_board_->SizeWithCells(kSmallestCell).height();
  }
  auto logs = std::count_if(column_.begin(), column_.end(), [](const Captioned& text) { return text.Grows; });
  int top = column.top();
  for (std::size_t i = 0; i < column_.size(); ++i) {
    if (column_[i].Grows) {
      const int share = spare / static_cast<int>(logs--);
      spare -= share;
      heights[i] += share;
    }
    Place(column_[i], {column.x(), top, column.width(), heights[i]});
    top += heights[i] + Gaps().BetweenRows;
  }
}

void GameFrame::PlaceSmallBoard(const QRect& column, int spare) {
  const int cell = static_cast<int>(kSmallBoardTimes * board_->CellSizeIn(board_->size()).height());
  const QSize wanted = small_board_->SizeWithCells(std::max(cell, kSmallestCell));
  const QSize caption = small_board_caption_->sizeHint();
  const int left = caption.width() + kCaptionToSmallBoard;
  const QSize size =
      small_board_->SizeIn({std::min(wanted.width(), column.width() - left),
                            std::min(wanted.height(), small_board_->SizeWithCells(kSmallestCell).height() + spare)});
  const int x = std::max(left, (column.width() - size.width()) / 2);
  small_board_->setGeometry({QPoint(column.x() + x, column.bottom() + 1 - size.height()), size});
  small_board_caption_->setGeometry({QPoint(column.x(), small_board_->y()), caption});
}

}  // namespace brontavia
