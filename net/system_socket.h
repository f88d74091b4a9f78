// What the system knows of a TCP connection and the toolkit does not tell. Each system has a file of its own for it.
#pragma once

#include <cstdint>

namespace brontavia {

enum class PeerEnd { None, InOrder, Reset };

// How the peer has ended the connection of this descriptor so far; None for one that is closed here.
PeerEnd HowPeerEnded(std::intptr_t descriptor);

// Asks the system about an unfinished send, also after the toolkit has closed its own descriptor. The connection does
// not end before its last handle.
class SecondHandle {
 public:
  explicit SecondHandle(std::intptr_t descriptor);
  SecondHandle(const SecondHandle&) = delete;
  SecondHandle& operator=(const SecondHandle&) = delete;
  ~SecondHandle();

  // Whether the peer's system has acknowledged every byte. Where this one does not tell, what it was handed counts.
  [[nodiscard]] bool AllAcknowledged() const;
  [[nodiscard]] bool ClosedInOrder() const { return HowPeerEnded(descriptor_) == PeerEnd::InOrder; }

 private:
  std::intptr_t descriptor_;
};

}  // namespace brontavia
