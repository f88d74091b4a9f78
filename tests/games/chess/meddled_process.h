// A process of its own, one of whose system calls does not do what it should.
#pragma once

#include <functional>

namespace brontavia::test {

// The `Number`th system call of the work, counted from 1, kills the process before it does anything; or, with an
// `Error` of <cerrno>, does nothing and fails with it. Calls that have nothing to do with files never fail.
struct Meddling {
  int Number = 1;
  int Error = 0;
};

struct MeddledOutcome {
  bool Ended = false;    // by itself
  int Result = 0;        // of the work, 0..255, when it ended by itself
  bool Reached = false;  // whether there were so many system calls
  bool Finding = false;  // whether the call was to look for a file or to open it
};

// Does `work` in a child process. Anything but an end by itself or by the meddling fails the test.
MeddledOutcome RunMeddled(const Meddling& meddling, const std::function<int()>& work);

}  // namespace brontavia::test
