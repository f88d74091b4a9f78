#include "ui/sound_server.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace brontavia {
namespace {

// Where the sound server of this user listens; empty if nowhere on this machine.
QByteArray SoundServerSocket() {
  QByteArray server = qgetenv("PULSE_SERVER");
  if (!server.isEmpty()) {
    if (server.startsWith("unix:")) server.remove(0, 5);
    return server.startsWith('/') ? server : QByteArray();
  }
  if (const QByteArray directory = qgetenv("PULSE_RUNTIME_PATH"); !directory.isEmpty()) return directory + "/native";
  const QByteArray directory = qgetenv("XDG_RUNTIME_DIR");
  // In another user's directory the server's client library refuses, with a text.
  if (directory.isEmpty() || QFileInfo(QFile::decodeName(directory)).ownerId() != geteuid()) return {};
  return directory + "/pulse/native";
}

}  // namespace

bool SoundServerAccepts() {
  const QByteArray path = SoundServerSocket();
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.isEmpty() || static_cast<std::size_t>(path.size()) >= sizeof address.sun_path) return false;
  std::copy(path.begin(), path.end(), address.sun_path);
  const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  if (descriptor < 0) return false;
  const bool accepts =
      connect(descriptor, static_cast<const sockaddr*>(static_cast<const void*>(&address)), sizeof address) == 0;
  close(descriptor);
  return accepts;
}

}  // namespace brontavia
