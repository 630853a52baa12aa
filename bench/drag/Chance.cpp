#include "bench/drag/Chance.h"

#include <array>
#include <numbers>

namespace tilwin {
namespace {

std::mt19937_64 generatorFor(std::uint32_t who, std::uint32_t seed) {
  const std::array<std::uint32_t, 2> numbers{who, seed};
  std::seed_seq sequence(numbers.begin(), numbers.end());
  return std::mt19937_64(sequence);
}

}  // namespace

Chance::Chance(std::uint32_t who, std::uint32_t seed) : generator_(generatorFor(who, seed)) {}

double Chance::share() { return static_cast<double>(generator_() >> 11) * 0x1p-53; }

/// The sum of four numbers of 16 bits, which one draw has: close to normal, and free of the mathematical
/// functions whose last bits vary. The sum of four uniform shares has a variance of a third.
double Chance::about(const Spread& values) {
  const std::uint64_t bits = generator_();
  double sum = 0;
  for (int piece = 0; piece < 4; ++piece) sum += static_cast<double>((bits >> (16 * piece)) & 0xFFFFU);
  return values.mean + values.spread * std::numbers::sqrt3 * (sum / 65535 - 2);
}

}  // namespace tilwin
