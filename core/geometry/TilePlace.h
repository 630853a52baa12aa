#pragma once

#include <vector>

#include "core/geometry/DisplayInfo.h"
#include "core/geometry/Rect.h"

namespace tilwin {

/// A request that a window fill a tile, and where the window stands if it comes out larger: it may have a
/// minimum size or fixed proportions. Frames are in the global desktop space, in points.
struct TilePlace {
  Rect tile{};    ///< the frame the window is asked to have
  Rect area{};    ///< the free part of the tile's display
  Rect before{};  ///< the window's actual frame when it is asked

  bool operator==(const TilePlace&) const = default;

  /// With the visible frame of the display that covers most of the tile as its area; without displays, the
  /// tile itself.
  [[nodiscard]] static TilePlace of(const Rect& tile, const Rect& before,
                                    const std::vector<DisplayInfo>& displays);

  /// The frame of the window if it takes this size. Where it is larger than the tile, it stands at that side
  /// of the tile that is nearer to the edge of the area; in the tile's middle if both are as near, or if that
  /// was its own middle before, so that a window that refuses to shrink in place does not wander. It never
  /// reaches beyond the area, and starts where the area does if it is larger. Where it is not larger, it
  /// starts where the tile does.
  [[nodiscard]] Rect frame(Size taken) const;
  /// This size if the area has room for it, otherwise the largest one of the same proportions that it has.
  [[nodiscard]] Size fitting(Size taken) const;
  /// The frame to report for the window while it has this one because of the request: the tile, so that the
  /// next action starts from it. But a window that was to shrink in place and could not is where it was.
  [[nodiscard]] Rect reported(const Rect& standing) const;
};

}  // namespace tilwin
