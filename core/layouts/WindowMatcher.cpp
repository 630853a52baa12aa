#include "core/layouts/WindowMatcher.h"

#include <algorithm>

#include "core/support/UnicodeText.h"

namespace tilwin {
namespace {

bool isGiven(const std::optional<std::string>& text) { return text && !text->empty(); }

}  // namespace

WindowMatcher::WindowMatcher(const std::vector<WindowInfo>& windows, bool includeMinimized) {
  candidates_.reserve(windows.size());
  for (const WindowInfo& window : windows) {
    if (includeMinimized || !window.isMinimized) candidates_.push_back({&window});
  }
  std::stable_sort(candidates_.begin(), candidates_.end(),
                   [](const Candidate& first, const Candidate& second) {
                     return first.window->zOrder < second.window->zOrder;
                   });
}

WindowMatcher::Groups WindowMatcher::grouped(std::vector<Candidate>& candidates,
                                             std::string WindowInfo::*text) {
  Groups groups;
  for (Candidate& candidate : candidates)
    groups[UnicodeText::caseKey(candidate.window->*text)].push_back(&candidate);
  return groups;
}

const WindowMatcher::Group* WindowMatcher::group(const LayoutSlot& slot) {
  const bool usesBundle = isGiven(slot.bundleID);
  if (!usesBundle && !isGiven(slot.appName)) return nullptr;
  auto& groups = usesBundle ? byBundle_ : byName_;
  if (!groups) groups = grouped(candidates_, usesBundle ? &WindowInfo::bundleID : &WindowInfo::appName);
  const auto found = groups->find(UnicodeText::caseKey(usesBundle ? *slot.bundleID : *slot.appName));
  return found == groups->end() ? nullptr : &found->second;
}

bool WindowMatcher::fits(Candidate& candidate, const std::string& titleKey) const {
  if (taken_.contains(candidate.window->id)) return false;
  if (titleKey.empty()) return true;
  if (!candidate.titleKey) candidate.titleKey = UnicodeText::baseKey(candidate.window->title);
  return candidate.titleKey->find(titleKey) != std::string::npos;
}

const WindowInfo* WindowMatcher::take(const LayoutSlot& slot) {
  const Group* windows = group(slot);
  if (windows == nullptr) return nullptr;
  const std::string titleKey = isGiven(slot.titleContains) ? UnicodeText::baseKey(*slot.titleContains) : "";
  // What did not fit before, or was taken, never fits this query again.
  std::size_t& next = next_[{windows, titleKey}];
  while (next < windows->size()) {
    Candidate& candidate = *(*windows)[next++];
    if (!fits(candidate, titleKey)) continue;
    taken_.insert(candidate.window->id);
    return candidate.window;
  }
  return nullptr;
}

}  // namespace tilwin
