#pragma once

#include <xcb/xcb.h>
#include <xcb/xinput.h>

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include "platform/ports/Listeners.h"
#include "platform/ports/PointerMonitor.h"
#include "platform/x11/X11Connection.h"

namespace tilwin::x11 {

/// The mouse by raw events, which arrive whoever holds the pointer; nothing is grabbed. Of its motion, and of
/// the keyboard, the server tells us only while the left button is down: a mouse that is merely moved never
/// wakes this program. Raw events name buttons as they are built; which of them is the left one is the user's
/// choice.
///
/// Escape calls a drag off with every window manager.
///
/// Sources: X Input Extension 2.1, raw events; X11 core protocol, SetPointerMapping.
class X11Pointer : public PointerMonitor {
public:
  /// The connection must outlive this and every token.
  explicit X11Pointer(X11Connection& x);

  [[nodiscard]] std::unique_ptr<Token> addGlobal(PointerEvent events, Handler handler) override;
  /// Null: this program's own windows are no exception to the raw events.
  [[nodiscard]] std::unique_ptr<Token> addLocal(PointerEvent events, Handler handler) override;
  [[nodiscard]] std::unique_ptr<Token> addCancelled(std::function<void()> handler) override;
  [[nodiscard]] Point position() override;

private:
  void rawEvent(const xcb_ge_generic_event_t& event);
  void buttonPressed(std::uint32_t button);
  void buttonReleased(std::uint32_t button);
  void keyPressed(std::uint32_t keycode);
  [[nodiscard]] bool isLeft(std::uint32_t button) const;
  void readButtons();
  void select(std::uint32_t events) const;
  void tell(PointerEvent event);

  X11Connection& x_;
  std::map<PointerEvent, Listeners<Token, PointerEvent>> monitors_;
  Listeners<Token> cancellations_;
  std::vector<std::uint8_t> buttons_;  ///< what each button counts as, the first one's first
  bool isDown_ = false;
};

}  // namespace tilwin::x11
