#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>

#include "core/drag/ShadowLogFile.h"
#include "core/drag/ShadowRecorder.h"
#include "core/snap/actions/SnapAction.h"
#include "platform/ports/Bundle.h"
#include "platform/ports/MainQueue.h"

namespace tilwin {

/// Records drags to the drag log while the user has enabled that. Creates no file, folder or timer before.
/// Records nothing if the desktop has no Application Support folder. Main thread only.
class DragRecording {
public:
  /// Both must outlive this object.
  DragRecording(MainQueue& mainQueue, Bundle& bundle);

  /// Starts recording, or stops it and drops the pending drags.
  void apply(bool on);
  /// To be told of each action on a window; what matters of it is recorded while that is enabled.
  void actionPerformed(std::int64_t windowID, SnapAction action);
  /// The drag log; nothing if the desktop has no place for it. Creates its folder.
  [[nodiscard]] std::optional<std::filesystem::path> file();
  /// How many drags the log holds.
  [[nodiscard]] std::size_t count();
  /// Deletes the log. Drags that are still pending are recorded later.
  void erase();
  /// Writes all pending drags and waits until they are in the log.
  void finish();
  /// The recorder to notify of drags; null until recording is first enabled.
  [[nodiscard]] const std::shared_ptr<ShadowRecorder>& recorder() const { return recorder_; }

private:
  void open();

  MainQueue& mainQueue_;
  Bundle& bundle_;
  std::shared_ptr<ShadowLogFile> log_;
  std::shared_ptr<ShadowRecorder> recorder_;
  std::unique_ptr<MainQueue::Repetition> timer_;  ///< there while recording is enabled
};

}  // namespace tilwin
