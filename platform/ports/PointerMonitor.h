#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

#include "core/geometry/Rect.h"

namespace tilwin {

/// What the left mouse button does. The values are the bits by which macOS selects events.
enum class PointerEvent : std::uint8_t {
  leftMouseDown = 2,
  leftMouseUp = 4,
  leftMouseDragged = 64,  ///< the pointer moved while the button was down
};

/// Watches the mouse whatever program it works on, and keeps no event from anybody. Nothing is told inside a
/// call of these.
class PointerMonitor {
public:
  using Handler = std::function<void(PointerEvent event)>;

  /// How often a drag is looked at: moves that come sooner after the last look are ignored by the watcher,
  /// and an adapter need not report them.
  static constexpr std::chrono::milliseconds betweenLooks{30};

  /// Events are told for as long as this lives; it may go while one is told.
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

  /// Told of such events that go to other programs. Null when the desktop does not allow it.
  [[nodiscard]] virtual std::unique_ptr<Token> addGlobal(PointerEvent events, Handler handler) = 0;
  /// Told of such events that go to this program's own windows. Null where the global monitors are told of
  /// those too.
  [[nodiscard]] virtual std::unique_ptr<Token> addLocal(PointerEvent events, Handler handler) = 0;
  /// Told when the user has called off a drag whose button is still down, so that the desktop has put the
  /// window back. Null on a desktop where that cannot be done.
  [[nodiscard]] virtual std::unique_ptr<Token> addCancelled(std::function<void()> handler) = 0;

  [[nodiscard]] virtual Point position() = 0;
};

}  // namespace tilwin
