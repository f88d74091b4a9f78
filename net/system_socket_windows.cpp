// The version in which Windows began to tell what is in flight; older ones refuse the question.
#define NTDDI_VERSION NTDDI_WIN10_RS2
#define _WIN32_WINNT _WIN32_WINNT_WIN10
#include <winsock2.h>
// Needs what stands above it.
#include <mstcpip.h>

#include "net/system_socket.h"

namespace brontavia {
namespace {

SOCKET SocketOf(std::intptr_t descriptor) { return static_cast<SOCKET>(descriptor); }

}  // namespace

PeerEnd HowPeerEnded(std::intptr_t descriptor) {
  WSAPOLLFD asked{.fd = SocketOf(descriptor), .events = POLLRDNORM, .revents = 0};
  WSAPoll(&asked, 1, 0);
  if ((asked.revents & POLLERR) != 0) return PeerEnd::Reset;
  return (asked.revents & POLLHUP) != 0 ? PeerEnd::InOrder : PeerEnd::None;
}

SecondHandle::SecondHandle(std::intptr_t descriptor) : descriptor_(static_cast<std::intptr_t>(INVALID_SOCKET)) {
  WSAPROTOCOL_INFOW protocol;
  if (WSADuplicateSocketW(SocketOf(descriptor), GetCurrentProcessId(), &protocol) != 0) return;
  descriptor_ = static_cast<std::intptr_t>(
      WSASocketW(FROM_PROTOCOL_INFO, FROM_PROTOCOL_INFO, FROM_PROTOCOL_INFO, &protocol, 0, WSA_FLAG_NO_HANDLE_INHERIT));
}

SecondHandle::~SecondHandle() { closesocket(SocketOf(descriptor_)); }

bool SecondHandle::AllAcknowledged() const {
  DWORD version = 0;
  TCP_INFO_v0 told{};
  DWORD size = 0;
  const bool tells = WSAIoctl(SocketOf(descriptor_), SIO_TCP_INFO, &version, sizeof version, &told, sizeof told, &size,
                              nullptr, nullptr) == 0;
  // What a peer's closed window holds back is not in flight either.
  return !tells || (told.BytesInFlight == 0 && told.SndWnd != 0);
}

}  // namespace brontavia
