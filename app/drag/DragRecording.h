#pragma once

#include <memory>

#include "core/drag/ShadowLogFile.h"
#include "core/drag/ShadowRecorder.h"
#include "core/snap/SnapController.h"
#include "platform/ports/Bundle.h"
#include "platform/ports/MainQueue.h"

namespace tilwin {

/// Keeps the drag log while the user wants one. Until then there is no file, no folder and no timer; where
/// the desktop has no place for the log, nothing is recorded.
class DragRecording {
public:
  /// All must outlive it.
  DragRecording(MainQueue& mainQueue, Bundle& bundle, SnapController& controller);

  /// Begins to record, or stops and forgets the drags whose end is not known yet.
  void apply(bool on);
  /// Writes all that is known of the drags so far, and waits until it is on disk.
  void finish();
  /// To be told of drags; null until recording has been on.
  [[nodiscard]] const std::shared_ptr<ShadowRecorder>& recorder() const { return recorder_; }

private:
  void open();

  MainQueue& mainQueue_;
  Bundle& bundle_;
  SnapController& controller_;
  std::shared_ptr<ShadowLogFile> log_;
  std::shared_ptr<ShadowRecorder> recorder_;
  std::unique_ptr<MainQueue::Repetition> timer_;
};

}  // namespace tilwin
