#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "core/layouts/Layout.h"

namespace tilwin {

/// What became of a layout.
enum class LayoutChange : std::uint8_t { saved, deleted, applied };

/// "saved", "deleted", "applied".
[[nodiscard]] constexpr std::string_view nameOf(LayoutChange change) {
  switch (change) {
    case LayoutChange::saved:
      return "saved";
    case LayoutChange::deleted:
      return "deleted";
    case LayoutChange::applied:
      return "applied";
  }
  return {};
}

using LayoutChangeHandler = std::function<void(LayoutChange change, const Layout& layout)>;

}  // namespace tilwin
