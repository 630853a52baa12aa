#pragma once

#include <chrono>
#include <cstddef>
#include <utility>
#include <vector>

#include "core/drag/DragIntentModel.h"
#include "core/drag/ShadowRecord.h"

namespace tilwin {

/// The given number of minutes after midnight UTC of March 1, 2026.
inline Date atMinute(std::int64_t minute) {
  return std::chrono::sys_days(std::chrono::year(2026) / 3 / 1) + std::chrono::minutes(minute);
}

/// A drag released at this distance from the edge; the rule snapped it if the distance is small enough.
inline ShadowRecord recordOf(double distance, DragFollowUp follow, std::int64_t minute = 0) {
  ShadowRecord record;
  record.at = atMinute(minute);
  record.screen = "1440x900";
  record.distance = distance;
  record.settled = 1;
  record.rule = distance <= 6;
  record.follow = follow;
  return record;
}

inline ShadowRecord undone(std::int64_t minute = 0) {
  return recordOf(2, DragFollowUp::restoredOrMovedAway, minute);
}
inline ShadowRecord kept(std::int64_t minute = 0) { return recordOf(2, DragFollowUp::keptSnap, minute); }
inline ShadowRecord redragged(std::int64_t minute = 0) {
  return recordOf(12, DragFollowUp::draggedBackToSameEdge, minute);
}
inline ShadowRecord leftAlone(std::int64_t minute = 0) {
  return recordOf(12, DragFollowUp::leftAlone, minute);
}

/// The given number of copies of each record.
inline std::vector<ShadowRecord> logOf(const std::vector<std::pair<std::size_t, ShadowRecord>>& parts) {
  std::vector<ShadowRecord> records;
  for (const auto& [count, record] : parts) records.insert(records.end(), count, record);
  return records;
}

inline DragFeatures releasedAt(double distance) { return {.distance = distance, .settled = 1}; }

/// A model that snaps everywhere within its reach.
inline DragIntentModel sureOfSnapping() {
  DragIntentModel model;
  model.weights = {10, 0, 0, 0, 0, 0, 0};
  model.averaged = model.weights;
  return model;
}

}  // namespace tilwin
