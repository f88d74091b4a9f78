// How failing expectations show Qt's texts.
#pragma once

#include <QString>
#include <QStringList>
#include <ostream>

inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << qPrintable(text) << '"'; }

inline void PrintTo(const QStringList& texts, std::ostream* out) {
  *out << '[' << qPrintable(texts.join(u"], [")) << ']';
}
