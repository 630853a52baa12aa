#pragma once

#import <Foundation/Foundation.h>

#include "platform/macos/support/Held.h"
#include "platform/ports/Workspace.h"

namespace tilwin::macos {

/// The running programs by NSWorkspace and NSRunningApplication (macOS 10.6; the frontmost one 10.7). Both
/// are as of the last turn of the event loop. Main thread only.
class MacWorkspace final : public Workspace {
public:
  /// `own` is this program's bundle.
  explicit MacWorkspace(NSBundle* own) : own_(retained(own)) {}

  /// A menu of this program, also one of its status item, does not make it the frontmost one; a dialog or its
  /// settings window does.
  [[nodiscard]] std::optional<RunningApplication> frontmostApplication() override;
  [[nodiscard]] std::vector<RunningApplication> runningApplications() override;
  [[nodiscard]] std::optional<std::string> ownBundleIdentifier() override;

private:
  Held<NSBundle*> own_;
};

}  // namespace tilwin::macos
