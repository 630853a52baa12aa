#pragma once

#include <cstdint>
#include <map>
#include <optional>

#include "platform/ports/HotKeys.h"
#include "platform/ports/MainQueue.h"
#include "platform/x11/input/X11Keyboard.h"
#include "platform/x11/wire/DeferredWork.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// Hot keys as passive grabs by physical key, with and without every lock key. When the keyboard changes
/// under them they are grabbed anew; one that is then refused stays registered and is tried again at the
/// next change. Sources: X11 core protocol, GrabKey; X Keyboard Extension, detectable auto-repeat.
class X11HotKeys : public HotKeys {
public:
  /// Connection, queue and log must outlive this.
  X11HotKeys(X11Connection& x, MainQueue& queue, SystemLog& log);
  X11HotKeys(const X11HotKeys&) = delete;
  X11HotKeys& operator=(const X11HotKeys&) = delete;
  ~X11HotKeys() override;

  [[nodiscard]] std::optional<Reference> add(const HotKeySpec& spec, const HotKeyIdentity& identity) override;
  void remove(Reference reference) override;
  void setPressHandler(PressHandler handler) override { handler_ = std::move(handler); }

private:
  struct Registration {
    HotKeySpec spec;
    HotKeyIdentity identity;
    std::optional<KeyChord> chord;  ///< what is grabbed now
  };

  void listenToEvents();
  void keyPressed(const xcb_key_press_event_t& event);
  void keyReleased(const xcb_key_release_event_t& event);
  [[nodiscard]] bool isRepeat(const xcb_key_press_event_t& event);
  [[nodiscard]] bool grab(const KeyChord& chord) const;
  void ungrab(const KeyChord& chord) const;
  [[nodiscard]] std::optional<KeyChord> grabFor(const HotKeySpec& spec) const;
  void rereadKeyboard();

  X11Connection& x_;
  SystemLog& log_;
  X11Keyboard keyboard_;
  std::map<Reference, Registration> registrations_;
  Reference nextReference_ = 1;
  PressHandler handler_;
  xcb_keycode_t grabbingKey_ = 0;                  ///< the key that holds the keyboard for us now
  std::map<xcb_keycode_t, xcb_timestamp_t> down_;  ///< keys held, and when each was last heard of
  DeferredWork keyboardReading_;
};

}  // namespace tilwin::x11
