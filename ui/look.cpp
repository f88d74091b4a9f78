#include "ui/look.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace brontavia::look {
namespace {

constexpr double kReadableText = 4.5;
constexpr double kReadableSign = 3;

constexpr Colours kLight{.Dark = false,
                         .Window = {0xEF, 0xEF, 0xEF},
                         .Base = {0xFF, 0xFF, 0xFF},
                         .Text = {0x1D, 0x1F, 0x23},
                         .Muted = {0x56, 0x5D, 0x66},
                         .Line = {0xC4, 0xC8, 0xCD},
                         .Focus = {0x1F, 0x6F, 0xB2},
                         .Highlight = {0x2F, 0x6F, 0xA8},
                         .HighlightText = {0xFF, 0xFF, 0xFF},
                         .Newest = {0xDC, 0xE8, 0xF3},
                         .Lit = {0xFF, 0xE3, 0xA1},
                         .LitEdge = {0x8A, 0x5A, 0x00},
                         .LitText = {0x1D, 0x1F, 0x23},
                         .Ready = {0x1B, 0x6E, 0x3C},
                         .ReadyTick = {0xFF, 0xFF, 0xFF},
                         .Dot = {0x85, 0x8D, 0x96},
                         .Sea = {0xDC, 0xE9, 0xF0},
                         .SeaLine = {0xBB, 0xD0, 0xDC},
                         .SeaOrnament = {0x7C, 0x9F, 0xB3},
                         .SeaSign = {0x44, 0x70, 0x8A},
                         .Hull = {0x3E, 0x4C, 0x57},
                         .HullEdge = {0x1F, 0x2A, 0x32},
                         .Deck = {0x5C, 0x6C, 0x78},
                         .HullText = {0xFF, 0xFF, 0xFF}};

constexpr Colours kDark{.Dark = true,
                        .Window = {0x2A, 0x2C, 0x2F},
                        .Base = {0x1E, 0x20, 0x22},
                        .Text = {0xE9, 0xEA, 0xEC},
                        .Muted = {0xAC, 0xB2, 0xB9},
                        .Line = {0x4C, 0x51, 0x57},
                        .Focus = {0x6D, 0xB3, 0xE8},
                        .Highlight = {0x2F, 0x6F, 0xA8},
                        .HighlightText = {0xFF, 0xFF, 0xFF},
                        .Newest = {0x2F, 0x43, 0x56},
                        .Lit = {0x57, 0x43, 0x0F},
                        .LitEdge = {0xFF, 0xD1, 0x66},
                        .LitText = {0xFF, 0xF6, 0xDC},
                        .Ready = {0x7F, 0xD6, 0xA0},
                        .ReadyTick = {0x10, 0x26, 0x1A},
                        .Dot = {0x6F, 0x76, 0x7E},
                        .Sea = {0x19, 0x32, 0x41},
                        .SeaLine = {0x2C, 0x4A, 0x5B},
                        .SeaOrnament = {0x55, 0x82, 0x9B},
                        .SeaSign = {0x9C, 0xC3, 0xD8},
                        .Hull = {0x9F, 0xB1, 0xBD},
                        .HullEdge = {0xDC, 0xE6, 0xEC},
                        .Deck = {0x7F, 0x93, 0xA1},
                        .HullText = {0x10, 0x1E, 0x27}};

// As WCAG 2 defines it, 0 to 1.
double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

Colours MixedWith(const QPalette& palette) {
  const auto of = [&](QPalette::ColorRole role) { return palette.color(QPalette::Active, role); };
  Colours colours = Luminance(of(QPalette::Window)) < Luminance(of(QPalette::WindowText)) ? kDark : kLight;
  colours.Window = of(QPalette::Window);
  colours.Base = of(QPalette::Base);
  colours.Text = of(QPalette::Text);
  if (Contrast(of(QPalette::Highlight), of(QPalette::HighlightedText)) >= kReadableText) {
    colours.Highlight = of(QPalette::Highlight);
    colours.HighlightText = of(QPalette::HighlightedText);
  }
  // Many palettes do not part the highlight of a list without focus from that of one which has it.
  const QColor inactive = palette.color(QPalette::Inactive, QPalette::Highlight);
  if (inactive != of(QPalette::Highlight) && Contrast(inactive, colours.Text) >= kReadableText) {
    colours.Newest = inactive;
  }
  // On a ground of the user's that is neither light nor dark, his own text colour is the one that can be read.
  const auto shows = [&](const QColor& colour, double contrast) {
    return std::min(Contrast(colour, colours.Window), Contrast(colour, colours.Base)) >= contrast;
  };
  if (!shows(colours.Muted, kReadableText)) colours.Muted = colours.Text;
  if (!shows(colours.Focus, kReadableSign)) colours.Focus = colours.Text;
  if (Contrast(colours.Dot, colours.Base) < kReadableSign) colours.Dot = colours.Text;
  if (Contrast(colours.Newest, colours.Text) < kReadableText) colours.Newest = colours.Base;
  return colours;
}

// ---- Writing ----

struct Question {
  QFont Font;
  std::vector<QString> Words;
  QSizeF Room;
  qreal Largest = 0;
};

bool Fits(const QFont& font, std::span<const QString> words, const QSizeF& room) {
  const QFontMetricsF metrics(font);
  return metrics.capHeight() + metrics.descent() <= room.height() &&
         std::ranges::all_of(words,
                             [&](const QString& word) { return metrics.horizontalAdvance(word) <= room.width(); });
}

std::optional<QFont> FindFitting(const Question& question) {
  constexpr std::array<int, 3> kStretches{92, 85, 75};
  constexpr int kNarrowest = 70;
  QFont font = question.Font;
  int pixels = std::max(kSmallestReadable, static_cast<int>(question.Largest));
  font.setPixelSize(pixels);
  // As wide as it is, and not set to 100 %: that would be another font to the system, loaded once more.
  if (Fits(font, question.Words, question.Room)) return font;
  for (const int stretch : kStretches) {
    font.setStretch(stretch);
    if (Fits(font, question.Words, question.Room)) return font;
  }
  while (--pixels >= kSmallestReadable) {
    font.setPixelSize(pixels);
    if (Fits(font, question.Words, question.Room)) return font;
  }
  font.setPixelSize(kSmallestReadable);
  font.setStretch(kNarrowest);
  if (Fits(font, question.Words, question.Room)) return font;
  return std::nullopt;
}

}  // namespace

Colours ColoursOf(const QPalette& palette) {
  static qint64 last_key = -1;
  static Colours last;
  if (last_key != palette.cacheKey()) {
    last = MixedWith(palette);
    last_key = palette.cacheKey();
  }
  return last;
}

const Colours& ColoursOnLight() { return kLight; }

double Contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

qreal PixelsOf(const QFont& font) { return QFontInfo(font).pixelSize(); }

QSize SmallestWindow(const QFont& font) {
  constexpr QSizeF kWithSmallFont(640, 480);
  constexpr QSizeF kWithLargeFont(800, 560);
  constexpr qreal kSmallFont = 13;
  constexpr qreal kLargeFont = 24;
  const qreal part = std::clamp((PixelsOf(font) - kSmallFont) / (kLargeFont - kSmallFont), 0.0, 1.0);
  return (kWithSmallFont + (kWithLargeFont - kWithSmallFont) * part).toSize();
}

QFont Scaled(const QFont& font, qreal factor, bool bold) {
  QFont scaled = font;
  scaled.setPixelSize(std::max(kSmallestReadable, qRound(PixelsOf(font) * factor)));
  scaled.setBold(bold);
  return scaled;
}

std::optional<QFont> FittingFont(const QFont& font, std::span<const QString> words, const QSizeF& room, qreal largest) {
  struct Answer {
    Question Asked;
    std::optional<QFont> Font;
  };
  constexpr std::size_t kKept = 16;
  static std::vector<Answer> kept;
  const auto asked = [&](const Answer& answer) {
    const Question& question = answer.Asked;
    return question.Largest == largest && question.Room == room && std::ranges::equal(question.Words, words) &&
           question.Font == font;
  };
  if (const auto found = std::ranges::find_if(kept, asked); found != kept.end()) return found->Font;
  Answer answer{{font, {words.begin(), words.end()}, room, largest}, std::nullopt};
  answer.Font = FindFitting(answer.Asked);
  std::optional<QFont> fitting = answer.Font;
  if (kept.size() < kKept) {
    kept.push_back(std::move(answer));
  } else {
    static std::size_t oldest = 0;
    kept[oldest] = std::move(answer);
    oldest = (oldest + 1) % kKept;
  }
  return fitting;
}

}  // namespace brontavia::look
