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

/// Waits a few seconds after each drag that ended near an edge for what the user does with the window then,
/// and hands on one record of both. For the main thread.
class ShadowRecorder {
public:
  /// Of a display, in points.
  struct ScreenSize {
    double width = 0;
    double height = 0;
  };
  using Clock = std::function<Date()>;

  explicit ShadowRecorder(std::shared_ptr<ShadowSink> sink, Clock now = systemClock());

  double followUpWindow = 4;  ///< seconds that are waited

  /// A drag of the window ended. `snapped` is the action applied, if any; `intended` the zone within the
  /// reach of a drag model that the point of release lies in.
  void release(std::int64_t windowID, const DragFeatures& features, const ScreenSize& screen,
               std::optional<SnapAction> snapped, std::optional<SnapAction> intended);
  /// A new drag of the window has begun.
  void dragMoved(std::int64_t windowID);
  /// An action was applied to the window, in whichever way.
  void actionPerformed(std::int64_t windowID, SnapAction action);
  /// To be called about once a second: hands on whatever has waited long enough.
  void tick();
  /// Hands on everything now, in the order of the drags.
  void flush();
  /// Forgets everything that waits.
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
