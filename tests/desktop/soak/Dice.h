#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>

namespace tilwin::desktop::soak {

/// The random choices of one act. They follow from the seed of the run and the number of the act alone, so an
/// act that is replayed chooses the same, whatever the acts before it chose.
class Dice {
public:
  Dice(std::uint32_t seed, std::uint32_t act) {
    std::seed_seq both{seed, act};
    engine_.seed(both);
  }

  /// Less than `count`, which is not 0.
  std::size_t below(std::size_t count) { return engine_() % count; }
  /// Both ends included.
  int between(int least, int most) {
    return least + static_cast<int>(below(static_cast<std::size_t>(most - least) + 1));
  }
  bool oneIn(std::size_t count) { return below(count) == 0; }
  template <typename Choices>
  auto& oneOf(Choices&& choices) {
    return choices[below(std::size(choices))];
  }

private:
  std::mt19937 engine_;
};

}  // namespace tilwin::desktop::soak
