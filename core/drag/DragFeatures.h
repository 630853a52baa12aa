#pragma once

#include <array>
#include <optional>

#include "core/drag/DragTrace.h"
#include "core/drag/NeighbourEdges.h"
#include "core/geometry/Rect.h"

namespace tilwin {

/// What is known about a drag at its release that may tell whether the user meant to snap: the input of
/// `DragIntentModel`. Lengths in points, times in seconds.
struct DragFeatures {
  static constexpr double nearEdge = 24;  ///< points; up to this distance the pointer counts as at the edge

  double distance = 0;     ///< points from the pointer to the nearest edge of its display
  double speed = 0;        ///< of the pointer at release, in points per second
  double dwell = 0;        ///< seconds without interruption that the pointer was near that edge
  double settled = 0;      ///< 1 if the pointer was at rest at release, 0 if at its top speed of this drag
  bool neighbour = false;  ///< whether another display adjoins that edge

  bool operator==(const DragFeatures&) const = default;

  /// `frame` is the whole frame of the display under the pointer at release. Returns nothing for a trace of
  /// fewer than two samples.
  [[nodiscard]] static std::optional<DragFeatures> make(const DragTrace& trace, const Rect& frame,
                                                        const NeighbourEdges& neighbours);

  using Vector = std::array<double, 7>;
  /// The features scaled to 0 to 1, in this order: bias (always 1), distance, speed, dwell, settled,
  /// neighbour, speed if there is a neighbour.
  [[nodiscard]] Vector vector() const;
};

}  // namespace tilwin
