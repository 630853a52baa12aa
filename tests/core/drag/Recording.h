#pragma once

#include <gmock/gmock.h>

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

#include "core/drag/ShadowRecorder.h"

namespace tilwin {

struct RecordList final : ShadowSink {
  void append(const ShadowRecord& record) override { records.push_back(record); }
  std::vector<ShadowRecord> records;
};

/// A recorder with a clock that the test advances.
struct Recording : testing::Test {
  static constexpr std::int64_t window = 7;
  static constexpr std::int64_t otherWindow = 8;

  std::shared_ptr<RecordList> log = std::make_shared<RecordList>();
  Date now = std::chrono::sys_days(std::chrono::year(2026) / 3 / 1) + std::chrono::hours(14) +
             std::chrono::minutes(7);
  ShadowRecorder recorder{log, [this] { return now; }};

  void release(std::int64_t windowID, double distance, std::optional<SnapAction> snapped,
               std::optional<SnapAction> intended = std::nullopt) {
    recorder.release(windowID, {.distance = distance, .settled = 1}, {1440, 900}, snapped, intended);
  }
  void snap() { release(window, 3, SnapAction::leftHalf, SnapAction::leftHalf); }
  void missTheSnap() { release(window, 15, std::nullopt, SnapAction::leftHalf); }
  void wait(std::chrono::microseconds time) { now += time; }

  [[nodiscard]] std::vector<DragFollowUp> followUps() const {
    std::vector<DragFollowUp> result;
    for (const ShadowRecord& record : log->records) result.push_back(record.follow);
    return result;
  }
  [[nodiscard]] ShadowRecord onlyRecord() const {
    EXPECT_THAT(log->records, testing::SizeIs(1));
    return log->records.empty() ? ShadowRecord{} : log->records.front();
  }
};

}  // namespace tilwin
