// What happens to a window, one step a line: its first character tells what, the rest is its text. A script is text, so
// that a finding can be read and shortened by hand.
//
// Of the first line the first character alone counts; it chooses the window and what has happened before (OpeningOf).
//
//   r TEXT     the peer's text arrives; "\n" in it stands for a line break, "\\" for a backslash
//   c RC       a click on row R and column C of the board, letters from "a" on; other characters count on
//   p RC       the cell becomes the current one, as the pointer or an arrow key make it
//   k K, m K   a key, a menu command of the game
//   a TEXT     the topmost box is answered: "y" presses Yes or OK, any other text No or Cancel; TEXT is typed; the menu
//              item of the letter is chosen; a file with TEXT as its content is chosen. Without TEXT it is cancelled
//   h          what is sent from now on is not acknowledged, or is again
//   s C        time passes: 1 s for "a", 2 s for "b" and so on
//   q, w       a client asks to connect; it gives up
//   L, C, o    the client's user connects: locally, or after typing; the server has accepted
//   g, l       the line breaks and nobody has noticed yet; that it has broken is noticed
//   x          the user closes the window
//
// After the last line the line breaks and the window is closed.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brontavia::fuzz {

struct Step {
  char What = 0;
  std::string Text;
};

class Script {
 public:
  explicit Script(std::string_view text) : rest_(text) {}

  // Nothing at the end. Empty lines are passed over.
  std::optional<Step> Next();
  [[nodiscard]] bool AtEnd() const { return rest_.find_first_not_of('\n') == std::string_view::npos; }

 private:
  std::string_view rest_;
};

// The line of a step whose text may hold anything.
std::string LineOf(const Step& step);

}  // namespace brontavia::fuzz
