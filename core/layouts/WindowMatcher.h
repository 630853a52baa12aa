#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "core/geometry/WindowInfo.h"
#include "core/layouts/Layout.h"

namespace tilwin {

/// Gives windows to slots, each at most once, frontmost first. Every text is folded once, and slots that ask
/// for the same go on where the last one stopped, so that the work grows with windows and slots, not with
/// their product.
class WindowMatcher {
public:
  /// The windows must outlive the matcher.
  WindowMatcher(const std::vector<WindowInfo>& windows, bool includeMinimized);

  /// The window for the next slot; null when none is left that fits.
  [[nodiscard]] const WindowInfo* take(const LayoutSlot& slot);

private:
  struct Candidate {
    const WindowInfo* window = nullptr;
    std::optional<std::string> titleKey{};  ///< folded when first asked for
  };
  /// Candidates by the folded form of one of their texts, frontmost first.
  using Group = std::vector<Candidate*>;
  using Groups = std::unordered_map<std::string, Group>;
  /// What a slot asks for: its group, and the folded form of the title's part, which is empty when any title
  /// will do.
  using Query = std::pair<const Group*, std::string>;

  [[nodiscard]] static Groups grouped(std::vector<Candidate>& candidates, std::string WindowInfo::*text);
  [[nodiscard]] const Group* group(const LayoutSlot& slot);
  [[nodiscard]] bool fits(Candidate& candidate, const std::string& titleKey) const;

  std::vector<Candidate> candidates_;
  std::optional<Groups> byBundle_;  ///< made when first asked for, as `byName_` is
  std::optional<Groups> byName_;
  std::unordered_set<std::int64_t> taken_;  ///< window ids
  std::map<Query, std::size_t> next_;       ///< where in its group each query goes on
};

}  // namespace tilwin
