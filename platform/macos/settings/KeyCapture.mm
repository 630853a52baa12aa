#include "platform/macos/settings/KeyCapture.h"

#include <utility>

#include "platform/macos/input/KeyTranslation.h"

namespace tilwin::macos {

KeyCapture::KeyCapture(NSWindow* window, Report report)
    : window_(window),
      report_(std::move(report)),
      monitor_(retained([NSEvent addLocalMonitorForEventsMatchingMask:NSEventMaskKeyDown
                                                              handler:^NSEvent*(NSEvent* event) {
                                                                return takes(event) ? nil : event;
                                                              }])) {}

void KeyCapture::end() {
  if (monitor_) [NSEvent removeMonitor:monitor_.get()];
  monitor_ = {};
}

bool KeyCapture::takes(NSEvent* event) {
  if ([event window] != window_) return false;
  const unsigned short key = [event keyCode];
  if ([event isARepeat]) return isOn_ || takenKey_ == key;
  takenKey_ = isOn_ ? std::optional(key) : std::nullopt;
  if (!isOn_) return false;
  report_(form::KeyPressed{{key, hotKeyModifiers([event modifierFlags])}});
  return true;
}

}  // namespace tilwin::macos
