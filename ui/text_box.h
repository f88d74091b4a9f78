// A text box that only tells: read-only, selectable by mouse and keys, left with Tab.
#pragma once

#include <QPlainTextEdit>

namespace brontavia {

class TextBox : public QPlainTextEdit {
  Q_OBJECT

 public:
  TextBox(const QString& name, const QString& accessible_name, QWidget* parent = nullptr);

  void SetText(const QString& text);

  // Adds `text` at the end and scrolls there.
  void AppendText(const QString& text);

  // Appends a line break and `line`, and selects the line so that the box scrolls to it. The oldest lines go when
  // there are more than 5,000; of a very long one the beginning is shown.
  void AddLine(const QString& line);

  // The box is at least this many lines high.
  void SetMinimumLines(int lines);
};

}  // namespace brontavia
