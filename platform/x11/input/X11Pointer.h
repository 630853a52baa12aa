#pragma once

#include <xcb/xcb.h>
#include <xcb/xinput.h>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "platform/ports/Listeners.h"
#include "platform/ports/PointerMonitor.h"
#include "platform/x11/windows/HeldWindow.h"
#include "platform/x11/wire/DeferredWork.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// The mouse by raw events, which arrive whoever holds the pointer; nothing is grabbed. Of its motion, and of
/// the keyboard, the server tells us only while the left button is down: a mouse that is merely moved never
/// wakes this program. Nor does every step of one whose button is down: after a move that is told, the next
/// look is a moment later, and only once the pointer rests is the server asked for motion again. Raw events
/// name buttons as they are built; which of them is the left one is the user's choice.
///
/// Escape calls a drag off with every window manager.
///
/// Sources: X Input Extension 2.1, raw events; X11 core protocol, SetPointerMapping.
class X11Pointer : public PointerMonitor {
public:
  /// All must outlive this, and the connection every token. The held window's place is asked for with each
  /// look at the pointer in a drag.
  X11Pointer(X11Connection& x, HeldWindow& held, MainQueue& queue);

  [[nodiscard]] std::unique_ptr<Token> addGlobal(PointerEvent events, Handler handler) override;
  /// Null: this program's own windows are no exception to the raw events.
  [[nodiscard]] std::unique_ptr<Token> addLocal(PointerEvent events, Handler handler) override;
  [[nodiscard]] std::unique_ptr<Token> addCancelled(std::function<void()> handler) override;
  [[nodiscard]] Point position() override;

private:
  void rawEvent(const xcb_ge_generic_event_t& event);
  void buttonPressed(std::uint32_t button);
  void buttonReleased(std::uint32_t button);
  void moved();
  void lookAgain();
  [[nodiscard]] Point look();
  void tellMove(Point to);
  void keyPressed(std::uint32_t keycode);
  [[nodiscard]] bool isLeft(std::uint32_t button) const;
  void readButtons();
  void select(std::uint32_t events);
  /// The same with the next flush.
  void ask(std::uint32_t events);
  void tell(PointerEvent event);

  X11Connection& x_;
  HeldWindow& held_;
  std::map<PointerEvent, Listeners<Token, PointerEvent>> monitors_;
  Listeners<Token> cancellations_;
  std::vector<std::uint8_t> buttons_;  ///< what each button counts as, the first one's first
  std::uint32_t asked_ = 0;            ///< the events that the server is to tell of
  bool isDown_ = false;
  std::optional<Point> telling_;  ///< where the pointer is, while a move is told
  Point told_;                    ///< where it was at the last one
  DeferredWork nextLook_;
};

}  // namespace tilwin::x11
