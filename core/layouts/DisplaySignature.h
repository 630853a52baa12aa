#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "core/geometry/DisplayInfo.h"

namespace tilwin {

/// Identifies a set of connected displays by their sizes and positions in whole points, so that windows can
/// be restored when the same set is connected again.
struct DisplaySignature {
  std::string key;  ///< "1512x982@0,0|2560x1440@1512,-200"; empty for no displays

  DisplaySignature() = default;
  explicit DisplaySignature(const std::vector<DisplayInfo>& displays);

  [[nodiscard]] const std::string& description() const { return key; }

  bool operator==(const DisplaySignature&) const = default;
};

}  // namespace tilwin

template <>
struct std::hash<tilwin::DisplaySignature> {
  std::size_t operator()(const tilwin::DisplaySignature& signature) const noexcept {
    return std::hash<std::string>{}(signature.key);
  }
};
