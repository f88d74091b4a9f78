// What a click sets off in the rules of each game: the same work for benchmarks, which time it, and for the check,
// which counts its instructions.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace brontavia {

struct Work {
  std::string Name;
  std::function<void()> Run;
};

std::vector<Work> RuleWork();

}  // namespace brontavia
