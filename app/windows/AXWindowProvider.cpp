#include "app/windows/AXWindowProvider.h"

#include <algorithm>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "core/geometry/TilePlace.h"
#include "core/support/Fatal.h"
#include "core/support/LocalizedOrder.h"
#include "platform/ports/Accessibility.h"
#include "platform/ports/ScreenSpace.h"

namespace tilwin {
namespace {

using Element = AccessibilityElementRef;

/// How many levels up the element tree to search for the window of an element.
constexpr int mostAncestors = 8;

/// Nothing if the attribute is missing or has another type.
template <typename Value>
std::optional<Value> attribute(Accessibility& from, const Element& of, std::string_view name) {
  AccessibilityValue value = from.copyAttribute(of, name);
  auto* held = std::get_if<Value>(&value);
  return held == nullptr ? std::nullopt : std::optional<Value>(std::move(*held));
}

/// Null if missing.
Element elementAttribute(Accessibility& from, const Element& of, std::string_view name) {
  return attribute<Element>(from, of, name).value_or(nullptr);
}

std::optional<Rect> frameOfElement(Accessibility& from, const Element& window) {
  const auto position = attribute<Point>(from, window, accessibility::position);
  const auto size = attribute<Size>(from, window, accessibility::size);
  if (!position || !size) return std::nullopt;
  return Rect{position->x, position->y, size->width, size->height};
}

std::int64_t windowID(std::uint64_t hash) {
  if (hash > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
    fatal("The hash of a window's element is negative.");
  }
  return static_cast<std::int64_t>(hash);
}

/// Applications with an enhanced user interface for assistive software may animate or delay a move. If it is
/// on, this object switches it off for its own lifetime.
class PlainUserInterface {
public:
  PlainUserInterface(Accessibility& accessibility, std::optional<std::int32_t> processID)
      : accessibility_(accessibility) {
    if (!processID) return;
    Element application = accessibility.application(*processID);
    if (!attribute<bool>(accessibility, application, accessibility::enhancedUserInterface).value_or(false)) {
      return;
    }
    switchedOff_ = std::move(application);
    accessibility_.setAttribute(switchedOff_, accessibility::enhancedUserInterface, false);
  }
  PlainUserInterface(const PlainUserInterface&) = delete;
  PlainUserInterface& operator=(const PlainUserInterface&) = delete;
  ~PlainUserInterface() {
    if (switchedOff_) {
      accessibility_.setAttribute(switchedOff_, accessibility::enhancedUserInterface, true);
    }
  }

private:
  Accessibility& accessibility_;
  Element switchedOff_;
};

}  // namespace

AXWindowProvider::AXWindowProvider(Accessibility& accessibility, Workspace& workspace, Screens& screens)
    : accessibility_(accessibility), workspace_(workspace), screens_(screens) {}

std::vector<DisplayInfo> AXWindowProvider::displays() {
  const std::vector<Screen> screens = screens_.screens();
  const double firstHeight = screens.empty() ? 0 : screens.front().frame.height;
  std::vector<DisplayInfo> displays;
  for (const Screen& screen : screens) {
    const std::size_t place = displays.size();
    displays.push_back({.id = screen.number.value_or(static_cast<std::uint32_t>(place)),
                        .frame = fromScreen(screen.frame, firstHeight),
                        .visibleFrame = fromScreen(screen.visibleFrame, firstHeight),
                        .isPrimary = place == 0});
  }
  return displays;
}

std::optional<WindowInfo> AXWindowProvider::focusedWindow() {
  const auto front = workspace_.frontmostApplication();
  if (!front || isThisProgram(*front)) return std::nullopt;
  const Element application = accessibility_.application(front->processID);
  Element window = elementAttribute(accessibility_, application, accessibility::focusedWindow);
  if (!window) window = elementAttribute(accessibility_, application, accessibility::mainWindow);
  if (!window) return std::nullopt;
  auto info = described(window, *front, 0);
  return info ? std::optional(asAsked(*std::move(info))) : std::nullopt;
}

std::vector<WindowInfo> AXWindowProvider::allWindows() {
  elements_.clear();
  std::vector<WindowInfo> windows;
  for (const RunningApplication& application : listedApplications()) appendWindows(application, windows);
  std::erase_if(refusals_, [this](const auto& refusal) { return !elements_.contains(refusal.first); });
  return windows;
}

bool AXWindowProvider::applyFrame(std::int64_t id, const Rect& frame) {
  const auto found = elements_.find(id);
  if (found == elements_.end()) return false;
  const Element& window = found->second.element;
  const PlainUserInterface plain(accessibility_, accessibility_.owningProcess(window));
  const Point position{frame.x, frame.y};
  const Size size{frame.width, frame.height};
  const bool moved = accessibility_.setAttribute(window, accessibility::position, position);
  const bool resized = accessibility_.setAttribute(window, accessibility::size, size);
  // Again, because while resizing the system keeps the window on its screen and may have moved it.
  const bool movedAgain = accessibility_.setAttribute(window, accessibility::position, position);
  refusals_.erase(id);
  if (movedAgain) placeIfLarger(id, found->second, frame);
  return moved && resized && movedAgain;
}

void AXWindowProvider::placeIfLarger(std::int64_t id, const Known& window, const Rect& asked) {
  const auto taken = attribute<Size>(accessibility_, window.element, accessibility::size);
  if (!taken || (taken->width <= asked.width && taken->height <= asked.height)) return;
  const auto place = TilePlace::of(asked, window.standing, displays());
  const Rect target = place.frame(*taken);
  if (target.x != asked.x || target.y != asked.y) {
    accessibility_.setAttribute(window.element, accessibility::position, Point{target.x, target.y});
  }
  const auto standing = frameOfElement(accessibility_, window.element);
  if (standing) refusals_[id] = {place.reported(*standing), *standing};
}

WindowInfo AXWindowProvider::asAsked(WindowInfo window) {
  const auto refusal = refusals_.find(window.id);
  if (refusal == refusals_.end()) return window;
  if (refusal->second.standing == window.frame) {
    window.frame = refusal->second.reported;
  } else {
    refusals_.erase(refusal);
  }
  return window;
}

std::optional<Rect> AXWindowProvider::frame(std::int64_t of) {
  const auto found = elements_.find(of);
  return found == elements_.end() ? std::nullopt : frameOfElement(accessibility_, found->second.element);
}

std::optional<WindowInfo> AXWindowProvider::window(Point at) {
  const Element window = windowAround(accessibility_.element(at));
  if (!window) return std::nullopt;
  const auto processID = accessibility_.owningProcess(window);
  if (!processID) return std::nullopt;
  const auto running = workspace_.runningApplications();
  const auto owner = std::find_if(running.begin(), running.end(), [&](const RunningApplication& candidate) {
    return candidate.processID == *processID;
  });
  if (owner == running.end() || isThisProgram(*owner)) return std::nullopt;
  return described(window, *owner, 0);
}

/// If this program has no bundle identifier, all applications without one count as this program.
bool AXWindowProvider::isThisProgram(const RunningApplication& application) {
  return application.bundleIdentifier == workspace_.ownBundleIdentifier();
}

std::vector<RunningApplication> AXWindowProvider::listedApplications() {
  std::vector<RunningApplication> applications = workspace_.runningApplications();
  std::erase_if(applications, [this](const RunningApplication& application) {
    return !application.isRegular || isThisProgram(application);
  });
  const auto front = workspace_.frontmostApplication();
  const auto isInFront = [&](const RunningApplication& application) {
    return front && application.processID == front->processID;
  };
  const LocalizedOrder names;
  std::stable_sort(applications.begin(), applications.end(), [&](const auto& first, const auto& second) {
    if (isInFront(first) != isInFront(second)) return isInFront(first);
    return names.precedes(first.localizedName.value_or(""), second.localizedName.value_or(""));
  });
  return applications;
}

/// Continues the z-order from the windows already in `to`.
void AXWindowProvider::appendWindows(const RunningApplication& of, std::vector<WindowInfo>& to) {
  const auto windows = attribute<std::vector<Element>>(
      accessibility_, accessibility_.application(of.processID), accessibility::windows);
  if (!windows) return;
  for (const Element& window : *windows) {
    const auto subrole = attribute<std::string>(accessibility_, window, accessibility::subrole);
    if (subrole.value_or(std::string(accessibility::standardWindowSubrole)) !=
        accessibility::standardWindowSubrole) {
      continue;
    }
    if (auto info = described(window, of, static_cast<std::int64_t>(to.size()))) {
      to.push_back(asAsked(*std::move(info)));
    }
  }
}

/// Nothing if the window's frame cannot be read; otherwise makes its id valid.
std::optional<WindowInfo> AXWindowProvider::described(const Element& window, const RunningApplication& owner,
                                                      std::int64_t zOrder) {
  const auto standing = frameOfElement(accessibility_, window);
  if (!standing) return std::nullopt;
  const std::int64_t id = windowID(accessibility_.hash(window));
  elements_.insert_or_assign(id, Known{window, *standing});
  return WindowInfo{
      .id = id,
      .bundleID = owner.bundleIdentifier.value_or(""),
      .appName = owner.localizedName.value_or(""),
      .title = attribute<std::string>(accessibility_, window, accessibility::title).value_or(""),
      .frame = *standing,
      .isMinimized = attribute<bool>(accessibility_, window, accessibility::minimized).value_or(false),
      .zOrder = zOrder};
}

/// The nearest window among the element and its ancestors. After `mostAncestors` levels the ancestor reached
/// counts as the window without a check of its role. Null if the tree ends before.
Element AXWindowProvider::windowAround(Element element) {
  for (int step = 0; element && step < mostAncestors; ++step) {
    const auto role = attribute<std::string>(accessibility_, element, accessibility::role);
    if (role == accessibility::windowRole) break;
    element = elementAttribute(accessibility_, element, accessibility::parent);
  }
  return element;
}

}  // namespace tilwin
