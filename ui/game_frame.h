// The frame of a game under way: the strip, the board with the status under it, the other texts beside or below, the
// keys. It gives the board the room: the texts stand where the cells become larger.
#pragma once

#include <QGroupBox>
#include <vector>

#include "seams/key_hint.h"
#include "seams/scoreboard.h"

class QLabel;

namespace brontavia {

class BoardCaption;
class BoardView;
class KeyLine;
class Strip;
class TextBox;

class GameFrame : public QGroupBox {
  Q_OBJECT

 public:
  GameFrame();

  [[nodiscard]] TextBox* Status() const { return status_.Box; }

  // ---- For the constructor of a window. From above in the column of texts: ----

  // A box that grows with the window and shows at least `lines` lines.
  TextBox* AddLog(const QString& name, const QString& accessible_name, int lines);
  // A box for a text of `lines` lines, written smaller where room lacks.
  TextBox* AddTable(const QString& name, const QString& accessible_name, int lines);
  // Last in the column; takes the board as its child, as SetBoard does.
  void SetSmallBoard(BoardView& board);
  void SetBoard(BoardView& board);

  // ---- What the flow shows ----

  void ShowScoreboard(const Scoreboard& scoreboard);
  void ShowKeys(const KeyHints& keys);
  void ShowBoardCaption(const QString& caption, PlayerSign owner);

  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  // No box: the boards and texts have edges of their own.
  void paintEvent(QPaintEvent* /*event*/) override {}

 private:
  struct Captioned {
    QLabel* Caption = nullptr;
    TextBox* Box = nullptr;
    int Lines = 1;
    bool Grows = false;
  };

  // Distances, in pixels; smaller in a narrow window.
  struct Spacing {
    int Side;
    int Top;
    int Bottom;
    int BetweenColumns;
    int BetweenRows;
    int CaptionToBox;
    int AboveKeys;
    int RingGap;
    int LinesBelow;  // of the messages, where they stand below the board
  };
  static constexpr Spacing kWide{16, 12, 8, 24, 6, 6, 12, 8, 3};
  static constexpr Spacing kNarrow{12, 8, 4, 14, 4, 3, 6, 3, 2};

  [[nodiscard]] const Spacing& Gaps() const;
  [[nodiscard]] bool HasRoomForKeys() const;
  // Of a caption, and what parts it from its box.
  [[nodiscard]] int CaptionHeight() const;
  [[nodiscard]] int BoardCaptionHeight() const;
  // Without the caption.
  [[nodiscard]] int StatusHeight() const;
  [[nodiscard]] int FullHeight(const Captioned& text) const;
  [[nodiscard]] int LeastHeight(const Captioned& text) const;
  [[nodiscard]] int LeastColumnHeight() const;
  [[nodiscard]] QFont FullFont(const TextBox& box) const;
  [[nodiscard]] Captioned MakeText(const QString& name, const QString& accessible_name, int lines, bool grows);

  void Arrange();
  void WriteInUsersFont();
  void Place(const Captioned& text, QRect area) const;
  // What is left for the board where the texts stand beside it or below.
  [[nodiscard]] QRect BoardAreaBeside(const QRect& content) const;
  [[nodiscard]] QRect BoardAreaBelow(const QRect& content) const;
  void PlaceBoard(const QRect& area);
  void PlaceColumn(const QRect& column);
  // At the column's lower end, its caption beside it; `spare` pixels of height may be added to the smallest one.
  void PlaceSmallBoard(const QRect& column, int spare);

  Strip* strip_;
  Captioned status_;
  std::vector<Captioned> column_;
  BoardCaption* board_caption_;
  KeyLine* key_line_;
  BoardView* board_ = nullptr;
  BoardView* small_board_ = nullptr;
  QLabel* small_board_caption_ = nullptr;
};

}  // namespace brontavia
