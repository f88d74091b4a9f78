// A text box that only tells: read-only, selectable by mouse and keys, left with Tab. What it is given may come from a
// peer, so it shows no control characters (ForScreen) and holds no more than 5,000 lines and 256 Ki characters: the
// oldest lines go first. Where the focus is, a ring stands in place of the edge.
#pragma once

#include <QFont>
#include <QPlainTextEdit>
#include <optional>

namespace brontavia {

class TextBox : public QPlainTextEdit {
  Q_OBJECT

 public:
  TextBox(const QString& name, const QString& accessible_name, QWidget* parent = nullptr);

  // Of a text of more than 16 Ki characters the beginning is shown.
  void SetText(const QString& text);

  // Adds `text`, or when it has more than 16 Ki characters its end, at the end and scrolls there.
  void AppendText(const QString& text);

  // Appends a line break and `line`, and selects the line so that the box scrolls to it. Of one of more than 500
  // characters the beginning is shown.
  void AddLine(const QString& line);

  void SelectAll();

  // Whether the program is changing the text or what is selected, rather than the user.
  [[nodiscard]] bool IsBeingWritten() const { return being_written_; }

  // The box is at least this many lines high.
  void SetMinimumLines(int lines);

  // From now on the text is written in `largest`, whose size is in pixels, or smaller where the box has no room for it:
  // lines that wrap are narrowed first, and nothing goes below look::kSmallestReadable pixels; then the box scrolls.
  // Line breaks at the end of the text need no room.
  void FitText(const QFont& largest);

  // The height of a box that shows `lines` lines of `font`.
  [[nodiscard]] static int HeightFor(int lines, const QFont& font);

 protected:
  bool event(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  // Takes the oldest lines away, or the beginning of the only one, until the box holds no more than it may.
  void ForgetOldest();
  void PaintEdge();
  // What is selected in a box without focus is the newest line.
  void ColourNewest();
  void Fit();
  [[nodiscard]] QFont FittingFont() const;
  [[nodiscard]] bool Fits(const QFont& font) const;

  std::optional<QFont> largest_;
  bool being_written_ = false;
};

}  // namespace brontavia
