#pragma once

#include <cstddef>
#include <vector>

namespace tilwin {

/// The path of the pointer during one drag. It keeps the most recent part of a long drag: whatever is asked
/// of it looks back from the end.
struct DragTrace {
  struct Sample {
    double t = 0;  ///< seconds since the drag began, on a clock that never runs backwards
    double x = 0;  ///< points in the global desktop space
    double y = 0;

    bool operator==(const Sample&) const = default;
  };

  static constexpr std::size_t longest = 400;        ///< samples that are kept
  static constexpr std::size_t droppedAtOnce = 100;  ///< of the oldest, once there are more

  std::vector<Sample> samples;  ///< oldest first

  bool operator==(const DragTrace&) const = default;

  void append(const Sample& sample) {
    samples.push_back(sample);
    if (samples.size() > longest) samples.erase(samples.begin(), samples.begin() + droppedAtOnce);
  }
};

}  // namespace tilwin
