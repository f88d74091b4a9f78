// What a flow shows of itself besides boards and boxes. The game window shows it; tests record it.
#pragma once

#include <QString>

#include "seams/key_hint.h"
#include "seams/scoreboard.h"

namespace brontavia {

enum class Frame { FrServidor, FrCliente, FrJuego };
enum class Box { TBEstado, TBMensajes, TBBarcos, TBJugadas, TBEntorno, TBReloj };
enum class MediaPlayer { Mp1, MP2 };

class Screen {
 public:
  Screen() = default;
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;
  virtual ~Screen() = default;

  virtual void SetCaption(const QString& caption) = 0;

  // A hidden frame is disabled as well.
  virtual void ShowFrame(Frame frame, bool visible) = 0;

  // Replaces the whole text of a box that the window has.
  virtual void SetText(Box box, const QString& text) = 0;

  // Adds `text` at the end of a box that the window has.
  virtual void AppendText(Box box, const QString& text) = 0;

  // TBMensajes: appends a line break and `line`, and selects the line so that the box scrolls to it.
  virtual void AddMessage(const QString& line) = 0;

  // Says what others see on the board alone to those who hear the screen; shows nothing.
  virtual void Announce(const QString& sentence) = 0;

  // The strip above the board, the line of keys below it, and whose sea the big board of the naval battle shows (the
  // word and the sign before it; no other game has such a caption).
  virtual void ShowScoreboard(const Scoreboard& scoreboard) = 0;
  virtual void ShowKeys(const KeyHints& keys) = 0;
  virtual void ShowBoardCaption(const QString& caption, PlayerSign owner) = 0;

  virtual void Beep() = 0;

  // Plays a file that lies beside the executable, in place of what `player` is playing. What cannot be played is
  // silent.
  virtual void PlaySound(MediaPlayer player, const QString& file) = 0;
};

}  // namespace brontavia
