#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "core/geometry/WindowInfo.h"
#include "core/layouts/Layout.h"

namespace tilwin {

/// Gives windows to slots, each at most once, frontmost first. Every text is folded once, whatever the number
/// of slots: folding is what costs.
class WindowMatcher {
public:
  /// The windows must outlive the matcher.
  WindowMatcher(const std::vector<WindowInfo>& windows, bool includeMinimized);

  /// The window for the next slot; null when none is left that fits.
  [[nodiscard]] const WindowInfo* take(const LayoutSlot& slot);

private:
  struct Candidate {
    const WindowInfo* window = nullptr;
    std::string bundleKey{};
    std::string nameKey{};
    std::optional<std::string> titleKey{};  ///< folded when a slot first asks for it
  };

  [[nodiscard]] static bool titleHas(Candidate& candidate, const std::string& key);

  std::vector<Candidate> candidates_;       ///< frontmost first
  std::unordered_set<std::int64_t> taken_;  ///< window ids
};

}  // namespace tilwin
