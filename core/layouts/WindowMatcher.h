#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "core/geometry/WindowInfo.h"
#include "core/layouts/Layout.h"

namespace tilwin {

/// Assigns windows to layout slots, frontmost first, each window at most once. Case-folds every text only
/// once, as folding is the expensive part.
class WindowMatcher {
public:
  /// Keeps pointers to the windows, which must outlive the matcher.
  WindowMatcher(const std::vector<WindowInfo>& windows, bool includeMinimized);

  /// The frontmost unassigned window that matches the slot, now assigned; null if there is none.
  [[nodiscard]] const WindowInfo* take(const LayoutSlot& slot);

private:
  struct Candidate {
    const WindowInfo* window = nullptr;
    std::string bundleKey{};
    std::string nameKey{};
    std::optional<std::string> titleKey{};  ///< computed when a slot first needs it
  };

  [[nodiscard]] static bool titleHas(Candidate& candidate, const std::string& key);

  std::vector<Candidate> candidates_;       ///< frontmost first
  std::unordered_set<std::int64_t> taken_;  ///< window ids
};

}  // namespace tilwin
