#include <fcntl.h>
#include <linux/sockios.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "net/system_socket.h"

namespace brontavia {

PeerEnd HowPeerEnded(std::intptr_t descriptor) {
  pollfd asked{.fd = static_cast<int>(descriptor), .events = POLLRDHUP, .revents = 0};
  poll(&asked, 1, 0);
  if (asked.revents == 0) return PeerEnd::None;
  return asked.revents == POLLRDHUP ? PeerEnd::InOrder : PeerEnd::Reset;
}

SecondHandle::SecondHandle(std::intptr_t descriptor)
    : descriptor_(fcntl(static_cast<int>(descriptor), F_DUPFD_CLOEXEC, 0)) {}

SecondHandle::~SecondHandle() { close(static_cast<int>(descriptor_)); }

bool SecondHandle::AllAcknowledged() const {
  int unacknowledged = 0;
  ioctl(static_cast<int>(descriptor_), SIOCOUTQ, &unacknowledged);
  return unacknowledged == 0;
}

}  // namespace brontavia
