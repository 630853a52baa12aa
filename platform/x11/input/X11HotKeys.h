#pragma once

#include <cstdint>
#include <map>
#include <optional>

#include "platform/ports/HotKeys.h"
#include "platform/ports/MainQueue.h"
#include "platform/x11/input/HeldKeys.h"
#include "platform/x11/input/X11Keyboard.h"
#include "platform/x11/wire/DeferredWork.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// Hot keys as passive grabs of physical keys, one grab for each combination of the lock keys. If the
/// keyboard changes, all keys are grabbed again, and the change handler is called; one that is then refused
/// stays registered and is tried again at the next change. Sources: X11 core protocol, GrabKey; X Keyboard
/// Extension, detectable auto-repeat.
class X11HotKeys : public HotKeys {
public:
  /// The connection and the queue must outlive this. The destructor releases all grabs.
  X11HotKeys(X11Connection& x, MainQueue& queue);
  X11HotKeys(const X11HotKeys&) = delete;
  X11HotKeys& operator=(const X11HotKeys&) = delete;
  ~X11HotKeys() override;

  [[nodiscard]] std::optional<Reference> add(const HotKeySpec& spec, const HotKeyIdentity& identity) override;
  void remove(Reference reference) override;
  void setPressHandler(PressHandler handler) override { handler_ = std::move(handler); }
  void setChangeHandler(std::function<void()> handler) override { onChange_ = std::move(handler); }
  /// Calls the change handler, for instance because another window manager runs.
  void tellOfChange() const;
  /// The key code of a physical key on the present keyboard; nothing for a key that no hot key may have.
  [[nodiscard]] std::optional<std::uint32_t> keyCodeOf(std::uint32_t nativeScanCode) const;

private:
  struct Registration {
    HotKeySpec spec;
    HotKeyIdentity identity;
    std::optional<KeyChord> chord;  ///< the combination grabbed now, if any
  };

  void listenToEvents();
  void keyPressed(const xcb_key_press_event_t& event);
  [[nodiscard]] bool grab(const KeyChord& chord) const;
  void ungrab(const KeyChord& chord) const;
  [[nodiscard]] std::optional<KeyChord> grabFor(const HotKeySpec& spec) const;
  void rereadKeyboard();

  X11Connection& x_;
  X11Keyboard keyboard_;
  std::map<Reference, Registration> registrations_;
  Reference nextReference_ = 1;
  PressHandler handler_;
  std::function<void()> onChange_;
  HeldKeys held_;
  DeferredWork keyboardReading_;
};

}  // namespace tilwin::x11
