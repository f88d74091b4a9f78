// How many games at random a test plays.
#pragma once

namespace brontavia::test {

// A tenth under the sanitizers and under Wine, where a game takes five times as long.
#if defined(__SANITIZE_ADDRESS__) || defined(_WIN32)
inline constexpr int kShareOfRandom = 10;
#else
inline constexpr int kShareOfRandom = 1;
#endif

// What three thousand games do not touch ten thousand seldom do; the fuzzer searches on (scripts/fuzz.sh).
inline constexpr int kRandomGames = 3'000 / kShareOfRandom;

}  // namespace brontavia::test
