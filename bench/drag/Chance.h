#pragma once

#include <cstdint>
#include <random>

namespace tilwin {

/// Where values of one kind lie: about a mean, two thirds of them within the spread on either side.
struct Spread {
  double mean = 0;
  double spread = 0;

  bool operator==(const Spread&) const = default;
};

/// Chance that can be repeated. The generator is the standard's, the shapes are our own: those of the
/// standard library differ from one implementation to the next.
class Chance {
public:
  /// Each pair of numbers gives a sequence of its own.
  Chance(std::uint32_t who, std::uint32_t seed);

  /// From 0, never 1, all values alike.
  double share();
  double between(double least, double most) { return least + (most - least) * share(); }
  bool happens(double probability) { return share() < probability; }
  /// Bell-shaped, and never farther than three and a half spreads from the mean.
  double about(const Spread& values);

private:
  std::mt19937_64 generator_;
};

}  // namespace tilwin
