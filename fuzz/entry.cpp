// Where the fuzzer enters a target: FUZZ_TARGET, one of fuzz/targets.h.
#include <cstddef>
#include <cstdint>

#include "fuzz/targets.h"

// For speed: a finding is run again by fuzz_replay, which has the sanitizer's own settings and so the whole story.
extern "C" const char* __asan_default_options() {
  return "malloc_context_size=1:quarantine_size_mb=4:max_malloc_fill_size=0:detect_stack_use_after_return=0";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  brontavia::fuzz::FUZZ_TARGET({reinterpret_cast<const char*>(data), size});
  return 0;
}
