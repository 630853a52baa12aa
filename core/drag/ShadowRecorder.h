#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "core/drag/DragFeatures.h"
#include "core/drag/DragFollowUp.h"
#include "core/drag/ShadowRecord.h"
#include "core/snap/actions/SnapAction.h"
#include "core/support/Date.h"

namespace tilwin {

/// Observes for a few seconds after each drag that ended near an edge what the user does with the window, and
/// then passes one record of both to the sink. Main thread only. Uses `tick` instead of a timer of its own.
class ShadowRecorder {
public:
  /// Size of a display, in points.
  struct ScreenSize {
    double width = 0;
    double height = 0;
  };
  using Clock = std::function<Date()>;

  /// `now` is the clock for deadlines and the time of release.
  explicit ShadowRecorder(std::shared_ptr<ShadowSink> sink, Clock now = systemClock());

  double followUpWindow = 4;  ///< seconds to observe after a drag

  /// Call when a drag of the window has ended. `snapped` is the applied action, if any; `intended` the zone
  /// at the point of release, with zones as deep as the reach of `DragIntentModel`. Ignores drags that ended
  /// farther from the edge.
  void release(std::int64_t windowID, const DragFeatures& features, const ScreenSize& screen,
               std::optional<SnapAction> snapped, std::optional<SnapAction> intended);
  /// Call when a new drag of the window has begun.
  void dragMoved(std::int64_t windowID);
  /// Call when any action was applied to the window, by shortcut or drag.
  void actionPerformed(std::int64_t windowID, SnapAction action);
  /// Call about once a second: passes on the drags whose time is over.
  void tick();
  /// Passes on all pending drags now, in their order.
  void flush();
  /// Drops all pending drags.
  void discard() { pending_.clear(); }

  [[nodiscard]] std::size_t pendingCount() const { return pending_.size(); }

  [[nodiscard]] static Clock systemClock();

private:
  struct Pending {
    DragFeatures features;
    std::string screen;
    bool snapped = false;
    std::optional<SnapAction> zone;
    Date at;
    Date deadline;
  };

  [[nodiscard]] Date deadlineFrom(Date at) const;
  void resolveWhere(const std::function<bool(const Pending&)>& applies);
  void resolve(std::int64_t windowID);
  void finish(std::int64_t windowID, DragFollowUp follow);

  std::map<std::int64_t, Pending> pending_;
  std::shared_ptr<ShadowSink> sink_;
  Clock now_;
};

}  // namespace tilwin
