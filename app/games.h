// The five games: what the program knows of each besides what its own directory holds.
#pragma once

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
};

// In the order of List1.
std::span<const Game> Games();

}  // namespace brontavia
