#pragma once

namespace tilwin {

/// How large something in the global desktop space is, in points.
struct Size {
  double width = 0;
  double height = 0;

  bool operator==(const Size&) const = default;
};

}  // namespace tilwin
