#pragma once

#include <xcb/xcb.h>
#include <xcb/xinput.h>

#include <cstdint>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "platform/pointer/PacedDrag.h"
#include "platform/ports/Listeners.h"
#include "platform/ports/PointerMonitor.h"
#include "platform/x11/windows/HeldWindow.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// Watches the mouse with raw events, which arrive even while another client grabs the pointer. Grabs
/// nothing.
///
/// To wake up seldom, it selects motion and key events only while the left button is down. During a drag it
/// reports a move, deselects motion, and polls the pointer after `betweenLooks`. Once the pointer rests, it
/// selects motion again and stops polling. Points are pixels in root coordinates.
///
/// Raw events do not say where the pointer is. At a release it is read, unless it is known to rest.
///
/// Raw events have physical button numbers; the pointer mapping tells which one the user has made the left
/// button. Escape cancels a drag in every window manager.
///
/// Sources: X Input Extension 2.1, raw events; X11 core protocol, GetPointerMapping.
class X11Pointer : public PointerMonitor {
public:
  /// All arguments must outlive this. During a drag, each read of the pointer also requests the frame of
  /// `held`, which is let go once the release has been told.
  X11Pointer(X11Connection& x, HeldWindow& held, MainQueue& queue);

  [[nodiscard]] std::unique_ptr<Token> addGlobal(PointerEvent events, Handler handler) override;
  /// Always null, because raw events include those for this program's own windows.
  [[nodiscard]] std::unique_ptr<Token> addLocal(PointerEvent events, Handler handler) override;
  [[nodiscard]] std::unique_ptr<Token> addCancelled(std::function<void()> handler) override;
  [[nodiscard]] Point position() override;

private:
  /// What a raw event said; kept until all events that arrived with it have been taken.
  struct Noted {
    std::uint16_t event;   ///< XCB_INPUT_RAW_…
    std::uint32_t detail;  ///< the physical button or the keycode
  };

  void rawEvent(const xcb_ge_generic_event_t& event);
  void note(const Noted& what);
  void handleNoted();
  void buttonPressed(std::uint32_t button);
  void buttonReleased(std::uint32_t button);
  void moved();
  void lookAgain();
  /// Reads the pointer.
  [[nodiscard]] Point read() const;
  /// Reads the pointer and the frame of the held window, in one round trip.
  [[nodiscard]] Point look();
  void tellMove(Point to);
  void keyPressed(std::uint32_t keycode);
  [[nodiscard]] bool isLeft(std::uint32_t button) const;
  [[nodiscard]] bool isEscape(std::uint32_t keycode) const;
  /// Reads which physical button is the left one and which keys are Escape, if that may have changed.
  void readMapping();
  /// Selects the raw events to receive.
  void select(std::uint32_t events);
  /// The same, but sent with the next flush.
  void ask(std::uint32_t events);
  void tell(PointerEvent event);

  X11Connection& x_;
  HeldWindow& held_;
  std::map<PointerEvent, Listeners<Token, PointerEvent>> monitors_;
  Listeners<Token> cancellations_;
  std::vector<std::uint8_t> buttons_;   ///< the logical button of each physical one, starting with button 1
  std::vector<std::uint32_t> escapes_;  ///< the keycodes of Escape
  bool isMappingStale_ = true;
  std::vector<Noted> noted_;
  std::uint32_t asked_ = 0;  ///< the events selected on the server
  bool isDown_ = false;
  bool isResting_ = false;  ///< whether motion is selected and none came since the pointer was last told
  PacedDrag drag_;
};

}  // namespace tilwin::x11
