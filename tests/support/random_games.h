// How many games at random a test plays.
#pragma once

namespace brontavia::test {

// Under the sanitizers, where a game takes five times as long, a tenth of them.
#ifdef __SANITIZE_ADDRESS__
inline constexpr int kRandomGames = 1'000;
#else
inline constexpr int kRandomGames = 10'000;
#endif

}  // namespace brontavia::test
