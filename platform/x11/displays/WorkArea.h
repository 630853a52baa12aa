#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "core/geometry/DisplayInfo.h"

namespace tilwin::x11 {

/// The part of the X screen that the window manager leaves free on a workspace, in points: `numbers` is
/// _NET_WORKAREA (EWMH), four numbers for each workspace. A workspace without numbers has those of the first.
/// Nothing if there are none at all, or if they leave nothing free.
[[nodiscard]] std::optional<Rect> workAreaOf(const std::vector<std::uint32_t>& numbers,
                                             std::uint32_t workspace);

/// Reduces the visible frames of displays to what the work area leaves free. Some window managers have bars
/// and margins of their own and tell of them in no other way.
class WorkAreaRule {
public:
  /// The visible frames have lost the room of all struts already. `desktop` is the whole X screen; `shown`
  /// are the areas of windows that the window manager shows without listing them.
  ///
  /// The work area is one rectangle for all displays. Of several, one with a bar makes it smaller for the
  /// others too. So with several, a side counts only on a display where a bar is seen along the same edge:
  /// one that ends where the work area does, or that is as deep as what the work area lacks of the desktop,
  /// as some managers take it off there wherever their bar is. With a single display every side counts.
  void apply(const Rect& workArea, const Rect& desktop, std::span<const Rect> shown,
             std::vector<DisplayInfo>& displays);

private:
  void note(const Rect& workArea, const Rect& desktop);
  void noteStruts(const Rect& workArea, const DisplayInfo& display);

  std::optional<Rect> noted_;
  /// The X screen when that work area came up. When the screen changes, window managers tell another one a
  /// moment later; some never do.
  Rect notedFor_;
  /// The sides of that work area that were seen to be where the room of a panel ends. Such a side says no
  /// more than the strut: some window managers leave it there when the panel has gone.
  std::array<bool, 4> toldByStruts_{};
};

}  // namespace tilwin::x11
