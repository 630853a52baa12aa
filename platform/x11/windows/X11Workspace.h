#pragma once

#include <string>

#include "platform/ports/Workspace.h"
#include "platform/x11/windows/X11WindowProvider.h"

namespace tilwin::x11 {

/// The running programs of an X11 desktop: those that have a window. A program is identified by its desktop
/// entry or window class; all of them are regular, and process ids are 0.
class X11Workspace : public Workspace {
public:
  /// The connection and the windows must outlive this. `own` identifies this program.
  X11Workspace(X11Connection& x, X11WindowProvider& windows, RunningApplication own);

  /// While a panel or a menu has the focus: the program whose window had it before.
  [[nodiscard]] std::optional<RunningApplication> frontmostApplication() override;
  [[nodiscard]] std::vector<RunningApplication> runningApplications() override;
  [[nodiscard]] std::optional<std::string> ownBundleIdentifier() override { return own_.bundleIdentifier; }

private:
  X11Connection& x_;
  X11WindowProvider& windows_;
  RunningApplication own_;
};

}  // namespace tilwin::x11
