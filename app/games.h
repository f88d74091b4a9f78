// The five games: what the program knows of each besides what its own directory holds.
#pragma once

#include <QPainter>
#include <QPalette>
#include <QRectF>
#include <memory>
#include <span>

#include "net/process_values.h"
#include "net/window_traits.h"
#include "seams/connection.h"

namespace brontavia {

class GameWindow;

struct Game {
  const WindowTraits& Window;
  // Makes the game's window, which takes the connection. The caller owns the window.
  GameWindow* (*MakeWindow)(ProcessValues& values, std::unique_ptr<Connection> connection);
  // Fills `area`, a square, with the game's board.
  void (*PaintPicture)(QPainter& painter, const QRectF& area, const QPalette& palette);
};

// In the order of List1.
std::span<const Game> Games();

}  // namespace brontavia
