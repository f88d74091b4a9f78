// The random numbers of a game window.
#pragma once

#include <QTime>
#include <random>

namespace brontavia {

class RandomDraw {
 public:
  explicit RandomDraw(unsigned seed) : generator_(seed) {}

  // (hour + 1) x (minute + 1) x (second + 1): how a game window seeds its generator when it loads.
  static unsigned SeedOf(QTime local_time) {
    return static_cast<unsigned>((local_time.hour() + 1) * (local_time.minute() + 1) * (local_time.second() + 1));
  }

  // The whole part of r x `count` with r uniform in [0, 1): 0 .. count - 1.
  int Below(int count) { return static_cast<int>(uniform_(generator_) * count); }

 private:
  std::mt19937 generator_;
  std::uniform_real_distribution<double> uniform_{0.0, 1.0};
};

}  // namespace brontavia
