#pragma once

#import <AppKit/AppKit.h>

#include <optional>

#include "platform/macos/settings/Report.h"
#include "platform/macos/support/Held.h"

namespace tilwin::macos {

/// While it is on, takes every key that is pressed in a window and reports it, before menus, focus navigation
/// and the focused control see it. A key that is still held when the recording has ended stays taken. A local
/// event monitor, which is there as long as the window is open, whether or not it is on; on the main thread.
/// Source: NSEvent, monitoring events (macOS 10.6).
class KeyCapture {
public:
  /// The window must live as long as this.
  KeyCapture(NSWindow* window, Report report);
  KeyCapture(const KeyCapture&) = delete;
  KeyCapture& operator=(const KeyCapture&) = delete;
  ~KeyCapture() { end(); }

  void setOn(bool on) { isOn_ = on; }
  /// For good.
  void end();

private:
  [[nodiscard]] bool takes(NSEvent* event);

  NSWindow* window_;
  Report report_;
  bool isOn_ = false;
  std::optional<unsigned short> takenKey_;
  Held<id> monitor_;
};

}  // namespace tilwin::macos
