#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

#include "core/geometry/Rect.h"

namespace tilwin {

/// An event of the left mouse button. The values are the event mask bits of macOS (NSEvent.h).
enum class PointerEvent : std::uint8_t {
  leftMouseDown = 2,
  leftMouseUp = 4,
  leftMouseDragged = 64,  ///< the pointer moved while the button was down
};

/// Watches the mouse over all programs without consuming an event. No handler is called from inside one of
/// these functions.
///
/// A release at a place where neither the press nor a move was told comes after one more move: the place of
/// release is told as the drag's last move, more than `betweenLooks` after the one before, and then the
/// release. Until both are told, `position` is that place. So a receiver that examines a drag at that pace
/// still sees where it ended. If the button is pressed again sooner, the release is told before, without the
/// move.
class PointerMonitor {
public:
  using Handler = std::function<void(PointerEvent event)>;

  /// How often a drag is examined. The drag watcher ignores a move that comes sooner after the last one it
  /// examined, so an adapter need not report it.
  static constexpr std::chrono::milliseconds betweenLooks{30};

  /// The handler is called as long as this object lives. It may be destroyed inside the handler.
  class Token {
  public:
    Token() = default;
    Token(const Token&) = delete;
    Token& operator=(const Token&) = delete;
    virtual ~Token() = default;
  };

  PointerMonitor() = default;
  PointerMonitor(const PointerMonitor&) = delete;
  PointerMonitor& operator=(const PointerMonitor&) = delete;
  virtual ~PointerMonitor() = default;

  /// Calls the handler for each of these events that goes to another program. Null if the desktop does not
  /// allow it.
  [[nodiscard]] virtual std::unique_ptr<Token> addGlobal(PointerEvent events, Handler handler) = 0;
  /// Calls the handler for each of these events that goes to this program's own windows. Null if the global
  /// monitors report those too.
  [[nodiscard]] virtual std::unique_ptr<Token> addLocal(PointerEvent events, Handler handler) = 0;
  /// Calls the handler when the user cancels a drag while the button is still down; the desktop then puts the
  /// window back. Null on a desktop where drags cannot be cancelled.
  [[nodiscard]] virtual std::unique_ptr<Token> addCancelled(std::function<void()> handler) = 0;

  /// Where the pointer is, in points, in global desktop coordinates.
  [[nodiscard]] virtual Point position() = 0;
};

}  // namespace tilwin
