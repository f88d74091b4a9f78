#include "ui/sound_player.h"

#include <QFileInfo>
#include <QPluginLoader>

#include "ui/sound_effects.h"
#include "ui/sound_server.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

// Null when the module cannot be loaded, for instance because Qt Multimedia is not installed.
SoundEffects* Effects() {
  // Found in the directory of the executable, which is one of the application's library paths.
  static auto* const effects = qobject_cast<SoundEffects*>(QPluginLoader(u"sound_effects"_s).instance());
  return effects;
}

}  // namespace

void SoundPlayer::Play(const QString& path) {
  sound_.reset();
  const QFileInfo file(path);
  if (!file.isFile() || !file.isReadable() || !SoundServerAccepts()) return;
  if (SoundEffects* const effects = Effects()) sound_ = effects->Start(file.absoluteFilePath());
}

}  // namespace brontavia
