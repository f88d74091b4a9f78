// A TCP port for one test.
#pragma once

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QTcpServer>
#include <cstdint>

namespace brontavia::test {

// A port that nobody listens on, below those that the system gives to outgoing connections, and hardly the one that a
// test of another process has just found.
inline std::int32_t FreePort() {
  constexpr int kFirst = 10'000;
  constexpr int kPastLast = 32'000;
  QTcpServer probe;
  quint16 port = 0;
  do {
    port = static_cast<quint16>(QRandomGenerator::system()->bounded(kFirst, kPastLast));
  } while (!probe.listen(QHostAddress::Any, port));
  return port;
}

}  // namespace brontavia::test
