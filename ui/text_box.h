// A text box that only tells: read-only, selectable by mouse and keys, left with Tab. What it is given may come from a
// peer, so it shows no control characters (ForScreen) and holds no more than 5,000 lines and 256 Ki characters: the
// oldest lines go first.
#pragma once

#include <QPlainTextEdit>

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

  // The box is at least this many lines high.
  void SetMinimumLines(int lines);

 private:
  // Takes the oldest lines away, or the beginning of the only one, until the box holds no more than it may.
  void ForgetOldest();
};

}  // namespace brontavia
