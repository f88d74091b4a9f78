// What the loadable module sound_effects offers to SoundPlayer.
#pragma once

#include <QObject>
#include <QString>
#include <memory>

namespace brontavia {

class SoundEffects {
 public:
  SoundEffects() = default;
  SoundEffects(const SoundEffects&) = delete;
  SoundEffects& operator=(const SoundEffects&) = delete;
  virtual ~SoundEffects() = default;

  // Starts the .wav file at `path`. The sound stops when the object is destroyed; null without an output device.
  virtual std::unique_ptr<QObject> Start(const QString& path) = 0;
};

}  // namespace brontavia

#define BRONTAVIA_SOUND_EFFECTS "brontavia.SoundEffects/1"
Q_DECLARE_INTERFACE(brontavia::SoundEffects, BRONTAVIA_SOUND_EFFECTS)
