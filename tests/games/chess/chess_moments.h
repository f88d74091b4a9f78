// The moments of a session of chess at which a message can come, a window can close and a user can act.
#pragma once

#include <functional>
#include <vector>

#include "tests/games/chess/profile.h"
#include "tests/support/aje_pair.h"

namespace brontavia::test {

using Meanwhile = std::function<void()>;

// Ana, who has White, in a session whose other side says only what the test makes it say.
class Ana {
 public:
  Ana();

  void Receive(const QString& text);
  void Run(ChessCommand command);
  void Move(const QString& move);
  // The other side gives up by `message`; `meanwhile` happens while the first box tells it.
  void WinBy(const QString& message, const QString& told, const Meanwhile& meanwhile = {});
  void BeFree();
  // The next file dialog gives a file with a position.
  void ExpectFile(const Meanwhile& meanwhile = {});
  void ExpectOffer(const Meanwhile& meanwhile = {});
  // `meanwhile` happens in the wait for the next send.
  void WhileWaiting(const Meanwhile& meanwhile);

  Profile Files;
  AjePair Pair;
  AjeCopy& Copy = Pair.Server;
};

// Lets `meanwhile` happen at the moment `Name`, and goes on until everything has come to rest.
struct Moment {
  const char* Name;
  void (*Reach)(Ana& ana, const Meanwhile& meanwhile);
  bool Busy = false;  // something of the window waits for its answer, and nothing else can be commanded
};

const std::vector<Moment>& Moments();
// Those that are Busy.
std::vector<Moment> BusyMoments();

}  // namespace brontavia::test
