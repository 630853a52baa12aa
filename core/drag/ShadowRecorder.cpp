#include "core/drag/ShadowRecorder.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>
#include <vector>

#include "core/drag/DragIntentModel.h"

namespace tilwin {
namespace {

/// Seconds; limits `followUpWindow` so that deadlines do not overflow.
constexpr double longestWindow = 1e9;

double toTwoPlaces(double value) { return std::round(value * 100) / 100; }

std::string wholePoints(double length) { return std::to_string(std::llround(length)); }

}  // namespace

ShadowRecorder::Clock ShadowRecorder::systemClock() {
  return [] { return std::chrono::floor<Date::duration>(std::chrono::system_clock::now()); };
}

ShadowRecorder::ShadowRecorder(std::shared_ptr<ShadowSink> sink, Clock now)
    : sink_(std::move(sink)), now_(std::move(now)) {}

Date ShadowRecorder::deadlineFrom(Date at) const {
  const std::chrono::duration<double> window(std::clamp(followUpWindow, -longestWindow, longestWindow));
  return at + std::chrono::round<Date::duration>(window);
}

void ShadowRecorder::release(std::int64_t windowID, const DragFeatures& features, const ScreenSize& screen,
                             std::optional<SnapAction> snapped, std::optional<SnapAction> intended) {
  if (features.distance > DragIntentModel::reach) return;
  resolve(windowID);
  const Date at = now_();
  pending_[windowID] = {.features = features,
                        .screen = wholePoints(screen.width) + "x" + wholePoints(screen.height),
                        .snapped = snapped.has_value(),
                        .zone = snapped ? snapped : intended,
                        .at = at,
                        .deadline = deadlineFrom(at)};
}

void ShadowRecorder::dragMoved(std::int64_t windowID) {
  const auto found = pending_.find(windowID);
  if (found == pending_.end()) return;
  if (found->second.deadline < now_()) return resolve(windowID);
  // A drag that did not snap stays pending: the new drag may end in the same zone and snap.
  if (found->second.snapped) finish(windowID, DragFollowUp::restoredOrMovedAway);
}

void ShadowRecorder::actionPerformed(std::int64_t windowID, SnapAction action) {
  const auto found = pending_.find(windowID);
  if (found == pending_.end()) return;
  const Pending& drag = found->second;
  if (drag.deadline < now_()) return resolve(windowID);
  if (drag.snapped) {
    if (action == SnapAction::restore) finish(windowID, DragFollowUp::restoredOrMovedAway);
  } else if (drag.zone == action) {
    finish(windowID, DragFollowUp::draggedBackToSameEdge);
  }
}

void ShadowRecorder::tick() {
  if (pending_.empty()) return;
  resolveWhere([now = now_()](const Pending& drag) { return drag.deadline < now; });
}

void ShadowRecorder::flush() {
  resolveWhere([](const Pending&) { return true; });
}

void ShadowRecorder::resolveWhere(const std::function<bool(const Pending&)>& applies) {
  std::vector<std::pair<Date, std::int64_t>> drags;
  for (const auto& [windowID, drag] : pending_) {
    if (applies(drag)) drags.emplace_back(drag.at, windowID);
  }
  std::sort(drags.begin(), drags.end());
  for (const auto& [at, windowID] : drags) resolve(windowID);
}

void ShadowRecorder::resolve(std::int64_t windowID) {
  const auto found = pending_.find(windowID);
  if (found == pending_.end()) return;
  finish(windowID, found->second.snapped ? DragFollowUp::keptSnap : DragFollowUp::leftAlone);
}

void ShadowRecorder::finish(std::int64_t windowID, DragFollowUp follow) {
  const Pending drag = std::move(pending_.extract(windowID).mapped());
  ShadowRecord record;
  record.at = std::chrono::floor<std::chrono::minutes>(drag.at);
  record.screen = drag.screen;
  record.distance = toTwoPlaces(drag.features.distance);
  record.speed = toTwoPlaces(drag.features.speed);
  record.dwell = toTwoPlaces(drag.features.dwell);
  record.settled = toTwoPlaces(drag.features.settled);
  record.neighbour = drag.features.neighbour;
  record.rule = drag.snapped;
  if (drag.zone) record.zone = SnapActions::rawValue(*drag.zone);
  record.follow = follow;
  sink_->append(record);
}

}  // namespace tilwin
