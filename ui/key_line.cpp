#include "ui/key_line.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStringList>
#include <algorithm>

#include "ui/look.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

constexpr qreal kCapTimes = 0.85;  // of the user's font
constexpr qreal kUseTimes = 0.92;
constexpr int kSmallestHeight = 20;
constexpr int kCapPadding = 9;
constexpr int kAboveAndBelow = 3;
constexpr int kCapToUse = 6;
constexpr int kBetweenHints = 20;
constexpr qreal kCapRadius = 4;
constexpr qreal kLowerEdge = 2;

}  // namespace

KeyLine::KeyLine(QWidget* parent) : QWidget(parent) {
  setObjectName(u"KeyLine"_s);
  setAccessibleName(u"Teclas"_s);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  Show({});
}

void KeyLine::Show(const KeyHints& keys) {
  keys_ = keys + KeyHints{{.Key = u"F11"_s, .Use = u"pantalla completa"_s}};
  QStringList sentences;
  for (const KeyHint& hint : keys_) sentences << hint.Key + u' ' + hint.Use;
  setAccessibleDescription(sentences.join(u". "_s) + u'.');
  update();
}

KeyHints KeyLine::Shown() const {
  KeyHints shown;
  int end = 0;
  for (const KeyHint& hint : keys_) {
    end += WidthOf(hint);
    if (end > width()) break;
    end += kBetweenHints;
    shown << hint;
  }
  return shown;
}

QSize KeyLine::sizeHint() const {
  return {0, std::max(kSmallestHeight, QFontMetrics(UseFont()).height() + 2 * kAboveAndBelow)};
}

QFont KeyLine::CapFont() const { return look::Scaled(font(), kCapTimes); }

QFont KeyLine::UseFont() const { return look::Scaled(font(), kUseTimes); }

int KeyLine::CapWidth(const KeyHint& hint) const {
  return QFontMetrics(CapFont()).horizontalAdvance(hint.Key) + 2 * kCapPadding;
}

int KeyLine::WidthOf(const KeyHint& hint) const {
  return CapWidth(hint) + kCapToUse + QFontMetrics(UseFont()).horizontalAdvance(hint.Use);
}

void KeyLine::paintEvent(QPaintEvent* /*event*/) {
  const look::Colours& colours = look::ColoursOf(palette());
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  int left = 0;
  for (const KeyHint& hint : Shown()) {
    const QRectF cap = QRectF(left, 0, CapWidth(hint), height()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.Line);
    painter.drawRoundedRect(cap, kCapRadius, kCapRadius);
    painter.setPen(QPen(colours.Line, 1));
    painter.setBrush(colours.Base);
    const QRectF top = cap.adjusted(0, 0, 0, 1 - kLowerEdge);
    painter.drawRoundedRect(top, kCapRadius, kCapRadius);
    painter.setPen(colours.Text);
    painter.setFont(CapFont());
    painter.drawText(top, Qt::AlignCenter, hint.Key);
    painter.setPen(colours.Muted);
    painter.setFont(UseFont());
    painter.drawText(QRectF(left + CapWidth(hint) + kCapToUse, 0, width(), height()), Qt::AlignVCenter, hint.Use);
    left += WidthOf(hint) + kBetweenHints;
  }
}

}  // namespace brontavia
