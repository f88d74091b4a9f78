// The random numbers of a game window.
#pragma once

#include <QRandomGenerator>
#include <QTime>
#include <array>
#include <cstdint>
#include <optional>
#include <random>
#include <vector>

namespace brontavia {

// What a generator starts from. A time alone is a fixed seed, as tests need it.
struct RandomSeed {
  using SecretWords = std::array<std::uint32_t, 8>;

  RandomSeed(unsigned time, const std::optional<SecretWords>& secret = {}) : Time(time), Secret(secret) {}

  unsigned Time;
  std::optional<SecretWords> Secret;  // known to nobody else
};

class RandomDraw {
 public:
  explicit RandomDraw(const RandomSeed& seed) : generator_(seed.Time) {
    if (!seed.Secret) return;
    std::vector<std::uint32_t> words(seed.Secret->begin(), seed.Secret->end());
    words.push_back(seed.Time);
    std::seed_seq mixed(words.begin(), words.end());
    generator_.seed(mixed);
  }

  // (hour + 1) x (minute + 1) x (second + 1): the time's part of a game window's seed.
  static unsigned SeedOf(QTime local_time) {
    return static_cast<unsigned>((local_time.hour() + 1) * (local_time.minute() + 1) * (local_time.second() + 1));
  }

  // The whole part of r x `count` with r uniform in [0, 1): 0 .. count - 1.
  int Below(int count) { return static_cast<int>(uniform_(generator_) * count); }

 private:
  std::mt19937 generator_;
  std::uniform_real_distribution<double> uniform_{0.0, 1.0};
};

// The seed of a window that loads now. Its secret keeps the two players' windows, which may load in the same second,
// from drawing the same, and keeps whoever knows that second from knowing what they draw.
inline RandomSeed SeedOfWindow() {
  RandomSeed::SecretWords secret{};
  QRandomGenerator::system()->fillRange(secret.data(), static_cast<qsizetype>(secret.size()));
  return {RandomDraw::SeedOf(QTime::currentTime()), secret};
}

}  // namespace brontavia
