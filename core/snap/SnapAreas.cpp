// Custom areas: a window into one, and one from where a window stands.

#include <utility>

#include "core/snap/SnapController.h"

namespace tilwin {
struct SnapController::FocusedPlace {
  std::shared_ptr<WindowProvider> provider;
  WindowInfo window;
  /// What areas are fractions of: the display's visible frame less the margin. The gap between tiles plays no
  /// part.
  Rect inner;
};

std::optional<SnapController::FocusedPlace> SnapController::focusedPlace() const {
  auto provider = provider_.lock();
  if (!provider) return std::nullopt;
  auto window = provider->focusedWindow();
  if (!window) return std::nullopt;
  const auto displays = provider->displays();
  const DisplayInfo* home = display(window->frame, displays);
  if (home == nullptr) return std::nullopt;
  return FocusedPlace{std::move(provider), *std::move(window), home->visibleFrame.inset(outer)};
}

bool SnapController::snap(const CustomArea& to) {
  const auto place = focusedPlace();
  if (!place || ignoredBundleIDs.contains(place->window.bundleID)) return false;
  return moveUnlessThere(*place->provider, place->window, CustomArea::clamped(to.rect).rect(place->inner));
}

std::optional<CustomArea> SnapController::captureFocusedWindow(std::string named) const {
  const auto place = focusedPlace();
  if (!place) return std::nullopt;
  CustomArea area = CustomArea::starter(std::move(named));
  area.rect = CustomArea::clamped(NormalizedRect::of(place->window.frame, place->inner));
  return area;
}

}  // namespace tilwin
