// A module of its own because Qt Multimedia brings libraries whose loading would delay every start.
#include "ui/sound_effects.h"

#include <QAudioDevice>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>
#include <algorithm>
#include <array>

namespace brontavia {
namespace {

QtMessageHandler next_handler = nullptr;

// Whether the sound server has gone or a file is no sound, Qt Multimedia says it from several threads and in no
// category that a filter could name. Sound that fails is silent, so these texts are dropped and all others passed on.
void PassUnlessAboutSound(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  static constexpr std::array kAboutSound{"PulseAudioService:",
                                          "QAudioSink",
                                          "QSoundEffect",
                                          "QSample:",
                                          "Stream error:",
                                          "pa_stream_",
                                          "Failed to get server information",
                                          "Failed to get sink information"};
  const bool about_sound = std::any_of(kAboutSound.begin(), kAboutSound.end(),
                                       [&](const char* part) { return text.contains(QLatin1String(part)); });
  if (about_sound && type != QtFatalMsg) return;
  next_handler(type, context, text);
}

class QtSoundEffects : public QObject, public SoundEffects {
  Q_OBJECT
  Q_INTERFACES(brontavia::SoundEffects)
  Q_PLUGIN_METADATA(IID BRONTAVIA_SOUND_EFFECTS)

 public:
  QtSoundEffects() {
    // The client library of the sound server writes its complaints there instead of to standard error.
    qputenv("PULSE_LOG_SYSLOG", "1");
    next_handler = qInstallMessageHandler(PassUnlessAboutSound);
  }

  std::unique_ptr<QObject> Start(const QString& path) override {
    // An effect claims to play even where there is no device.
    if (QMediaDevices::audioOutputs().isEmpty()) return nullptr;
    // A new effect each time takes the device that is the default now.
    auto effect = std::make_unique<QSoundEffect>();
    effect->setSource(QUrl::fromLocalFile(path));
    effect->play();
    return effect;
  }
};

}  // namespace
}  // namespace brontavia

#include "sound_effects_linux.moc"
