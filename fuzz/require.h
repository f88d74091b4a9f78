// What must hold whatever a target is given. No assertion of a test framework: a target runs without one.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace brontavia::fuzz {

// Ends the process, as a fault that a sanitizer finds does, when `holds` is false.
inline void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "broken: %s\n", what);
  std::abort();
}

}  // namespace brontavia::fuzz
