// One plate of the strip above a board: who plays, what he is about, what he has won.
#pragma once

#include <QFont>
#include <QPainter>
#include <QRectF>

#include "seams/scoreboard.h"
#include "ui/look.h"

namespace brontavia {

// How far the point of a lit plate reaches below it, its edge included.
inline constexpr int kPlatePoint = 12;

// Where everything stands on a plate. What is empty is not shown: until the name is known the sign stands alone.
struct PlateLayout {
  QRectF Sign;
  QRectF Name;
  QFont NameFont;
  QRectF StateSign;
  QRectF Word;
  QFont WordFont;
  QRectF Slot;  // of the clock or of the piece that fought
  QRectF Dial;
  QRectF SlotText;  // the time, or the piece's name
  QFont SlotFont;
  QRectF Score;
  QFont ScoreFont;
  QRectF HairLine;
};

// On a plate that fills `plate`, in the user's font. `mirrored`: the sign stands right.
PlateLayout LayOutPlate(const ScoreboardSide& side, const QRectF& plate, bool mirrored, const QFont& font);

void PaintPlate(QPainter& painter, const ScoreboardSide& side, const QRectF& plate, bool mirrored, const QFont& font,
                const look::Colours& colours, bool focused);

}  // namespace brontavia
