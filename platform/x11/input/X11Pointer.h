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

/// Watches the mouse with raw events, which arrive even while another client grabs the pointer. Grabs
/// nothing.
///
/// To wake up seldom, it selects motion and key events only while the left button is down. During a drag it
/// reports a move, deselects motion, and polls the pointer after `betweenLooks`. Once the pointer rests, it
/// selects motion again and stops polling. Points are pixels in root coordinates.
///
/// Raw events have physical button numbers; the pointer mapping tells which one the user has made the left
/// button. Escape cancels a drag in every window manager.
///
/// Sources: X Input Extension 2.1, raw events; X11 core protocol, GetPointerMapping.
class X11Pointer : public PointerMonitor {
public:
  /// All arguments must outlive this. During a drag, each read of the pointer also requests the frame of
  /// `held`.
  X11Pointer(X11Connection& x, HeldWindow& held, MainQueue& queue);

  [[nodiscard]] std::unique_ptr<Token> addGlobal(PointerEvent events, Handler handler) override;
  /// Always null, because raw events include those for this program's own windows.
  [[nodiscard]] std::unique_ptr<Token> addLocal(PointerEvent events, Handler handler) override;
  [[nodiscard]] std::unique_ptr<Token> addCancelled(std::function<void()> handler) override;
  [[nodiscard]] Point position() override;

private:
  void rawEvent(const xcb_ge_generic_event_t& event);
  void buttonPressed(std::uint32_t button);
  void buttonReleased(std::uint32_t button);
  void moved();
  void lookAgain();
  /// Reads the pointer and the frame of the held window, in one round trip.
  [[nodiscard]] Point look();
  void tellMove(Point to);
  void keyPressed(std::uint32_t keycode);
  [[nodiscard]] bool isLeft(std::uint32_t button) const;
  void readButtons();
  /// Selects the raw events to receive.
  void select(std::uint32_t events);
  /// The same, but sent with the next flush.
  void ask(std::uint32_t events);
  void tell(PointerEvent event);

  X11Connection& x_;
  HeldWindow& held_;
  std::map<PointerEvent, Listeners<Token, PointerEvent>> monitors_;
  Listeners<Token> cancellations_;
  std::vector<std::uint8_t> buttons_;  ///< the logical button of each physical one, starting with button 1
  std::uint32_t asked_ = 0;            ///< the events selected on the server
  bool isDown_ = false;
  std::optional<Point> telling_;  ///< where the pointer is, while a move is being reported
  Point told_;                    ///< where the pointer was at the last reported move
  DeferredWork nextLook_;
};

}  // namespace tilwin::x11
