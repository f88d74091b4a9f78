// The one visual language of the program: colours, line widths, radii, how writing is fitted into its room, the signs
// and the marks. Everything that paints takes from it.
//
// Lengths are in device-independent pixels. A meaning is never carried by a colour alone.
#pragma once

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QPainter>
#include <QPalette>
#include <QRectF>
#include <QSize>
#include <QString>
#include <optional>
#include <span>

#include "seams/scoreboard.h"

namespace brontavia::look {

// ---- Colours ----

// Those that follow the user's palette, light or dark. Text on its ground has a contrast of at least 4.5 : 1, a sign 3,
// as long as the palette's own texts have it.
struct Colours {
  bool Dark = false;
  QColor Window;
  QColor Base;
  QColor Text;
  QColor Muted;  // captions, keys, headers of boards
  QColor Line;   // edges; carries no meaning
  QColor Focus;
  QColor Highlight;
  QColor HighlightText;
  QColor Newest;  // the last line of a log without focus
  QColor Lit;     // the lamp: here, now
  QColor LitEdge;
  QColor LitText;
  QColor Ready;
  QColor ReadyTick;
  QColor Dot;  // of an empty cell
  QColor Sea;
  QColor SeaLine;
  QColor SeaOrnament;
  QColor SeaSign;
  QColor Hull;
  QColor HullEdge;
  QColor Deck;
  QColor HullText;
};

// Dark when the palette's Window is darker than its WindowText. The active colours, so that nothing changes when
// another window comes to the front. Kept for the palette last asked about, so that a painter may ask for every cell.
Colours ColoursOf(const QPalette& palette);
// For boards whose ground is light in every palette.
const Colours& ColoursOnLight();

// The same in every palette.
inline constexpr QColor kInk{0x1D, 0x1F, 0x23};
inline constexpr QColor kWhite{0xFF, 0xFF, 0xFF};
inline constexpr QColor kLand{0xF4, 0xEF, 0xE1};
inline constexpr QColor kLampOnLand{0xFF, 0xE3, 0xA1};  // the lamp, where the ground is light in every palette
inline constexpr QColor kLandLine{0xD9, 0xD0, 0xBA};
inline constexpr QColor kLake{0x00, 0x8B, 0x8B};
inline constexpr QColor kLakeWave{0x7F, 0xD0, 0xCF};
inline constexpr QColor kTile{0xFF, 0xFD, 0xF6};
inline constexpr QColor kIvory{0xF4, 0xEF, 0xE1};
inline constexpr QColor kRedArmy{0x70, 0x00, 0x00};
inline constexpr QColor kBlueArmy{0x00, 0x00, 0x70};
inline constexpr QColor kSelected{0xFF, 0xC9, 0x3C};
inline constexpr QColor kSelectedRim{0x8A, 0x5A, 0x00};
inline constexpr QColor kLastMove{0xB0, 0x45, 0x08};
inline constexpr QColor kReachable{0x1B, 0x5E, 0x3B};
inline constexpr QColor kCursorLight{0x7C, 0xC4, 0xFF};
inline constexpr QColor kWaterShot{0x00, 0x00, 0xFF};
inline constexpr QColor kHit{0xFF, 0x00, 0x00};
inline constexpr QColor kSunk{0x4A, 0x00, 0x00};

// Between 1 and 21, as WCAG 2 defines it.
double Contrast(const QColor& one, const QColor& other);

// ---- Measures ----

inline constexpr int kUnit = 4;
inline constexpr int kPlateRadius = 8;
inline constexpr int kBoxRadius = 5;
inline constexpr int kTileRadius = 5;
inline constexpr int kButtonRadius = 10;
inline constexpr qreal kFocusWidth = 2.4;
inline constexpr int kSmallestReadable = 11;  // pixels of writing that is meant to be read

// The user's font in pixels (13 at 10 pt on a screen of 96 dpi).
qreal PixelsOf(const QFont& font);
// `font` at `factor` times its size; never under kSmallestReadable pixels.
QFont Scaled(const QFont& font, qreal factor, bool bold = false);
// The size below which no window shrinks: 640 x 480 with a font of 10 pt, growing with the font to 800 x 560, which
// every screen has room for. In it nothing is cut.
QSize SmallestWindow(const QFont& font);

// ---- Writing ----

// The font in which every one of `words` fits into `room`, one line, from the top of its capitals to its descenders:
// `largest` pixels (never under kSmallestReadable), then narrowed to 92, 85 and 75 %, then smaller down to
// kSmallestReadable, and that at 70 %. Nothing when even that does not fit: the drawing stands alone then. Kept for the
// last few questions, so that a painter may ask for every cell.
std::optional<QFont> FittingFont(const QFont& font, std::span<const QString> words, const QSizeF& room, qreal largest);

// ---- Signs ----

// The picture ui/pictures/`name`.svg, `size` at the painter's scale, in the middle of `area`. `colour`, where valid, is
// the colour of all that is drawn. Returns false, having painted nothing, where the picture cannot be shown, as where
// Qt has no plugin for SVG. Pictures are decoded when first painted and kept.
bool PaintPicture(QPainter& painter, const QRectF& area, const QString& name, const QSizeF& size,
                  const QColor& colour = {});

// The sign of a player, a square as large as fits into `area`; a letter where its picture cannot be shown. A flag has
// the colour of the text on its ground, `text`.
void PaintPlayerSign(QPainter& painter, const QRectF& area, PlayerSign sign, const QColor& text);

// The program's icon, drawn for 16, 32, 48 and 256 pixels. Decodes them each time.
QIcon ProgramIcon();

// ---- Marks: each can be told from every other without colour. They leave pen and brush of the painter changed ----

// Inside the edges of the cell.
void PaintCurrent(QPainter& painter, const QRectF& cell);
// The ground of what is picked up, and its rim.
void PaintSelected(QPainter& painter, const QRectF& area, qreal radius = 0);
// Four filled corners; `size` is the side of one, 0.24 of the area's smaller side where it is not given. The contour
// shows them on any ground.
void PaintLastMove(QPainter& painter, const QRectF& area, std::optional<qreal> size = std::nullopt);
// A dot, or a ring round what stands there.
void PaintReachable(QPainter& painter, const QRectF& cell, bool occupied);
// The disc with an anchor where a ship begins that is being placed.
void PaintFirstEnd(QPainter& painter, const QRectF& cell);
// From that disc to the current cell, over the cells between; a line that is painted cell by cell joins when each is
// given the same ends.
void PaintFirstEndLine(QPainter& painter, QPointF from, QPointF to);
// A dashed rim where a piece has been.
void PaintLifted(QPainter& painter, const QRectF& cell);
// A finer dashed rim, as large as the tile that is to stand there.
void PaintToFill(QPainter& painter, const QRectF& area, const QColor& army);
// The disc with crossed swords on the upper right of `cell`.
void PaintFight(QPainter& painter, const QRectF& cell);
// The ground and edge of a cell of the winning three, below its piece, and the stroke through all of them.
void PaintWinningCell(QPainter& painter, const QRectF& cell, const Colours& colours);
void PaintWinningStroke(QPainter& painter, QPointF from, QPointF to);
// Over a whole board whose game is over; reaches 8 pixels below it.
void PaintWaitsForClick(QPainter& painter, const QRectF& board, const Colours& colours);
// A rounded ring whose line runs `offset` outside `area`; `radius` of its corners.
void PaintFocusRing(QPainter& painter, const QRectF& area, const Colours& colours, qreal offset, qreal radius);

}  // namespace brontavia::look
