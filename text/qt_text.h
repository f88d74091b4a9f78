// The arithmetic of texts for texts that Qt holds.
#pragma once

#include <QString>
#include <string_view>

namespace brontavia {

inline constexpr QStringView kCrLf = u"\r\n";

// The characters of `text`, valid as long as what it looks at.
inline std::u16string_view Characters(QStringView text) {
  return {text.utf16(), static_cast<std::size_t>(text.size())};
}

inline QString ToQString(std::u16string_view text) { return QStringView(text).toString(); }

double Val(QStringView text);

// A copy of `text` without the blanks at its two ends.
QString TrimBlanks(QStringView text);

// `text` in exactly `width` characters: cut, or padded with blanks on the right.
QString FixedWidth(QStringView text, int width);

// `text`, or when it has more than `most` characters its beginning and "…", `most` characters in all.
QString Shortened(const QString& text, qsizetype most);

// `text` as a screen can show it: every line break ("\r\n", "\r" or "\n") is a "\n", and every other control character,
// a tab included, is U+FFFD. A NUL would hide what follows it from screen readers.
QString ForScreen(QString text);

// The rest of `text` from the character at `position` on, counted from 1; empty beyond the end.
QStringView From(QStringView text, int position);

}  // namespace brontavia
