// Sounds beside the game. What cannot be heard is passed over: no text, no delay, nothing on standard error.
#pragma once

#include <QObject>
#include <QString>
#include <memory>

namespace brontavia {

// One sound at a time; several players sound side by side. What is needed for sound is loaded at the first Play() that
// finds a sound server, so that a player costs nothing until then.
class SoundPlayer {
 public:
  // Stops what this player plays and starts the .wav file at `path`, which ends by itself or with the player. Where
  // there is no such file, no sound server or no output device nothing sounds.
  void Play(const QString& path);

 private:
  std::unique_ptr<QObject> sound_;
};

}  // namespace brontavia
