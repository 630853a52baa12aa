#pragma once

#include <vector>

#include "platform/ports/DesktopReport.h"
#include "platform/x11/windows/X11WindowProvider.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// What an X server and its window manager tell of themselves, and what `MoveRequests` has learnt of the
/// manager. Sources: X11's connection setup; EWMH, _NET_SUPPORTING_WM_CHECK and _NET_SUPPORTED; Xft.dpi of
/// the resources on the root window.
class X11DesktopReport final : public DesktopReport {
public:
  /// Both must outlive this.
  X11DesktopReport(X11Connection& x, X11WindowProvider& windows) : x_(x), windows_(windows) {}

  [[nodiscard]] DesktopFacts facts() override;

private:
  [[nodiscard]] ManagerFacts manager();
  [[nodiscard]] std::vector<WindowFacts> windows() const;

  X11Connection& x_;
  X11WindowProvider& windows_;
};

}  // namespace tilwin::x11
