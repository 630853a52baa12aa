#pragma once

#include <cstddef>
#include <vector>

namespace tilwin {

/// The path of the pointer during one drag. Of a long drag only the most recent part is kept, as
/// `DragFeatures` describes the end of the drag.
struct DragTrace {
  struct Sample {
    double t = 0;  ///< seconds since the start of the drag, on a monotonic clock
    double x = 0;  ///< global desktop space, points
    double y = 0;

    bool operator==(const Sample&) const = default;
  };

  static constexpr std::size_t longest = 400;        ///< samples kept at most
  static constexpr std::size_t droppedAtOnce = 100;  ///< oldest samples dropped when there are more

  std::vector<Sample> samples;  ///< oldest first

  bool operator==(const DragTrace&) const = default;

  void append(const Sample& sample) {
    samples.push_back(sample);
    if (samples.size() > longest) samples.erase(samples.begin(), samples.begin() + droppedAtOnce);
  }
};

}  // namespace tilwin
