// The system's own sounds. One sounds at a time: the next one ends it.
#include <windows.h>
// Needs what stands above it.
#include <mmsystem.h>

#include <QDir>

#include "ui/sound_effects.h"

namespace brontavia {
namespace {

class Sound;
Sound* sounding = nullptr;

class Sound : public QObject {
 public:
  explicit Sound(const QString& path) {
    sounding = this;
    const std::wstring name = QDir::toNativeSeparators(path).toStdWString();
    PlaySoundW(name.c_str(), nullptr, SND_FILENAME | SND_ASYNC | SND_NODEFAULT);
  }
  Q_DISABLE_COPY_MOVE(Sound)
  ~Sound() override {
    if (sounding != this) return;
    sounding = nullptr;
    PlaySoundW(nullptr, nullptr, 0);
  }
};

class SystemSoundEffects : public QObject, public SoundEffects {
  Q_OBJECT
  Q_INTERFACES(brontavia::SoundEffects)
  Q_PLUGIN_METADATA(IID BRONTAVIA_SOUND_EFFECTS)

 public:
  std::unique_ptr<QObject> Start(const QString& path) override {
    if (waveOutGetNumDevs() == 0) return nullptr;
    return std::make_unique<Sound>(path);
  }
};

}  // namespace
}  // namespace brontavia

#include "sound_effects_windows.moc"
