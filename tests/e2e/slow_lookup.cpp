// Loaded before the system's library: a name server that does not answer. Each question is written to standard error,
// so that a test knows when it has been asked.
#include <netdb.h>

#include <chrono>
#include <cstdio>
#include <thread>

extern "C" int getaddrinfo(const char* name, const char* /*service*/, const addrinfo* /*hints*/, addrinfo** /*found*/) {
  std::fprintf(stderr, "looking up %s\n", name);
  std::this_thread::sleep_for(std::chrono::seconds(30));
  return EAI_AGAIN;
}
