#pragma once

#include <array>
#include <optional>

#include "core/drag/DragTrace.h"
#include "core/drag/NeighbourEdges.h"
#include "core/geometry/Rect.h"

namespace tilwin {

/// What a drag looked like when the window was let go, as far as it tells whether a snap was meant.
struct DragFeatures {
  static constexpr double nearEdge = 24;  ///< points from an edge within which the pointer dwells at it

  double distance = 0;     ///< points from the pointer to the nearest edge of its display
  double speed = 0;        ///< of the pointer at release, in points per second
  double dwell = 0;        ///< seconds it had stayed near that edge without a break
  double settled = 0;      ///< 1 when it had come to rest, 0 when it was as fast as ever during the drag
  bool neighbour = false;  ///< whether another display lies across that edge

  bool operator==(const DragFeatures&) const = default;

  /// `frame` is the whole display under the point of release. Nothing for a trace of fewer than two samples.
  [[nodiscard]] static std::optional<DragFeatures> make(const DragTrace& trace, const Rect& frame,
                                                        const NeighbourEdges& neighbours);

  using Vector = std::array<double, 7>;
  /// Bias, distance, speed, dwell, settled, neighbour, speed towards a neighbour: each from 0 to 1.
  [[nodiscard]] Vector vector() const;
};

}  // namespace tilwin
