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
    if (window.isMinimized && !includeMinimized) continue;
    candidates_.push_back({.window = &window,
                           .bundleKey = UnicodeText::caseKey(window.bundleID),
                           .nameKey = UnicodeText::caseKey(window.appName)});
  }
  std::stable_sort(candidates_.begin(), candidates_.end(),
                   [](const Candidate& first, const Candidate& second) {
                     return first.window->zOrder < second.window->zOrder;
                   });
}

bool WindowMatcher::titleHas(Candidate& candidate, const std::string& key) {
  if (!candidate.titleKey) candidate.titleKey = UnicodeText::baseKey(candidate.window->title);
  return candidate.titleKey->find(key) != std::string::npos;
}

const WindowInfo* WindowMatcher::take(const LayoutSlot& slot) {
  const bool usesBundle = isGiven(slot.bundleID);
  if (!usesBundle && !isGiven(slot.appName)) return nullptr;
  const std::string key = UnicodeText::caseKey(usesBundle ? *slot.bundleID : *slot.appName);
  const auto keyOf = usesBundle ? &Candidate::bundleKey : &Candidate::nameKey;
  const std::string titleKey = isGiven(slot.titleContains) ? UnicodeText::baseKey(*slot.titleContains) : "";
  for (Candidate& candidate : candidates_) {
    if (candidate.*keyOf != key || taken_.contains(candidate.window->id)) continue;
    if (!titleKey.empty() && !titleHas(candidate, titleKey)) continue;
    taken_.insert(candidate.window->id);
    return candidate.window;
  }
  return nullptr;
}

}  // namespace tilwin
