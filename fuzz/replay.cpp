// Runs inputs of a target without a fuzzer: the kept corpus in a test, a finding in a debugger.
//   fuzz_replay TARGET FILE|DIRECTORY...
#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/targets.h"

namespace {

using namespace brontavia::fuzz;

struct Target {
  std::string_view Name;
  void (*Run)(std::string_view);
};

constexpr std::array kTargets{
    Target{"three_in_row", FuzzThreeInRow},
    Target{"naval", FuzzNaval},
    Target{"mini_strategy", FuzzMiniStrategy},
    Target{"strategy", FuzzStrategy},
    Target{"chess", FuzzChess},
    Target{"position_line", FuzzPositionLine},
    Target{"standard_fen", FuzzStandardFen},
    Target{"leading_number", FuzzLeadingNumber},
    Target{"fleet", FuzzFleet},
    Target{"army", FuzzArmy},
    Target{"configuration", FuzzConfiguration},
};

std::vector<std::filesystem::path> FilesOf(const std::filesystem::path& path) {
  if (!std::filesystem::is_directory(path)) return {path};
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(path)) files.push_back(entry.path());
  std::ranges::sort(files);
  return files;
}

// False when the file cannot be read.
bool Run(const Target& target, const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string content{std::istreambuf_iterator<char>(file), {}};
  if (!file) return false;
  std::printf("%s\n", path.c_str());
  std::fflush(stdout);  // so that the last one is that which ends the process
  target.Run(content);
  return true;
}

}  // namespace

int main(int argc, char* argv[]) {
  const std::vector<std::string_view> arguments(argv, argv + argc);
  const auto* target = arguments.size() < 3 ? kTargets.end() : std::ranges::find(kTargets, arguments[1], &Target::Name);
  if (target == kTargets.end()) {
    std::fprintf(stderr, "usage: fuzz_replay TARGET FILE|DIRECTORY...\n");
    return 2;
  }
  int runs = 0;
  for (std::size_t i = 2; i < arguments.size(); ++i) {
    for (const auto& path : FilesOf(arguments[i])) {
      if (!Run(*target, path)) {
        std::fprintf(stderr, "cannot read %s\n", path.c_str());
        return 1;
      }
      ++runs;
    }
  }
  if (runs == 0) std::fprintf(stderr, "nothing to run\n");
  return runs > 0 ? 0 : 1;
}
