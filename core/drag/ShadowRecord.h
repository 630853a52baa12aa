#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/drag/DragFeatures.h"
#include "core/drag/DragFollowUp.h"
#include "core/support/Date.h"

namespace tilwin {

/// One drag in the drag log. For privacy it does not contain the window, the application or the exact time.
struct ShadowRecord {
  std::int64_t v = 1;   ///< version of the format
  Date at;              ///< time of release, rounded down to the minute
  std::string screen;   ///< size of the display in whole points, such as "1440x900"
  double distance = 0;  ///< this and the next four as in `DragFeatures`, rounded to two decimals
  double speed = 0;
  double dwell = 0;
  double settled = 0;
  bool neighbour = false;
  bool rule = false;                ///< whether the drag snapped
  std::optional<std::string> zone;  ///< raw value of the applied action, or else of the zone at release
  DragFollowUp follow = DragFollowUp::leftAlone;

  bool operator==(const ShadowRecord&) const = default;

  [[nodiscard]] DragFeatures features() const { return {distance, speed, dwell, settled, neighbour}; }
};

/// Receives finished drag records. `ShadowLogFile` writes them to the drag log.
class ShadowSink {
public:
  ShadowSink() = default;
  ShadowSink(const ShadowSink&) = delete;
  ShadowSink& operator=(const ShadowSink&) = delete;
  virtual ~ShadowSink() = default;

  /// Returns at once and never fails; a record that cannot be stored is lost.
  virtual void append(const ShadowRecord& record) = 0;
};

}  // namespace tilwin
