#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/drag/DragFeatures.h"
#include "core/drag/DragFollowUp.h"
#include "core/support/Date.h"

namespace tilwin {

/// One drag in the drag log. It tells nothing of which window or program it was, nor exactly when.
struct ShadowRecord {
  std::int64_t v = 1;   ///< version of the format
  Date at;              ///< when the window was let go, the begin of that minute
  std::string screen;   ///< size of the display in whole points, such as "1440x900"
  double distance = 0;  ///< this and what follows as in `DragFeatures`, to two decimal places
  double speed = 0;
  double dwell = 0;
  double settled = 0;
  bool neighbour = false;
  bool rule = false;                ///< whether the drag snapped
  std::optional<std::string> zone;  ///< the action that was applied, or else the zone the drag ended in
  DragFollowUp follow = DragFollowUp::leftAlone;

  bool operator==(const ShadowRecord&) const = default;

  [[nodiscard]] DragFeatures features() const { return {distance, speed, dwell, settled, neighbour}; }
};

/// Where finished records of drags go.
class ShadowSink {
public:
  ShadowSink() = default;
  ShadowSink(const ShadowSink&) = delete;
  ShadowSink& operator=(const ShadowSink&) = delete;
  virtual ~ShadowSink() = default;

  /// Returns at once and never fails: a record that cannot be kept is lost.
  virtual void append(const ShadowRecord& record) = 0;
};

}  // namespace tilwin
