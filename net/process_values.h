// The values that live as long as the process. app/ owns the one instance; windows and flows are given a reference.
#pragma once

#include <QString>
#include <cstdint>

namespace brontavia {

enum class Role { Server, Client };

inline constexpr std::int32_t kDefaultPort = 34567;

struct ProcessValues {
  std::int32_t ConnectionPort = kDefaultPort;  // TCP port of both roles; any value, checked only by who uses it
  Role PlayerRole = Role::Server;              // chosen in Form1
  QString RemoteAddress;                       // where the client connects to, as typed; emptied by each game window
  std::int16_t SelectedGameIndex = 0;          // 0..4, position of the chosen game in List1
  QString SelectedGameName;                    // its text
};

}  // namespace brontavia
