#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/pointer/PacedDrag.h"
#include "platform/ports/PointerMonitor.h"

namespace tilwin {

/// The mouse of a simulated desktop. Its functions call the monitors before they return, also for moves and
/// releases that come sooner than a real desktop tells of them, unless they are paced. They do not move
/// windows; to drag one, call `SimulatedWindows::moveByHand` first. Points are in global desktop coordinates.
class SimulatedPointer final : public PointerMonitor {
public:
  enum class Reach {
    global,     ///< events that go to other programs
    local,      ///< events that go to this program's own windows
    cancelled,  ///< drags that the user cancels
  };
  struct Monitor {
    Reach reach = Reach::global;
    std::optional<PointerEvent> events;  ///< nothing for `cancelled`

    bool operator==(const Monitor&) const = default;
  };

  /// From now on tells of moves and releases when an adapter to a real desktop does, by tasks of this queue,
  /// which must outlive the mouse.
  void paceBy(MainQueue& queue);

  /// Presses the button at a point in a window of another program.
  void press(Point at);
  /// Moves the pointer and calls the monitors if the button is down.
  void drag(Point to);
  /// Moves the pointer without calling the monitors.
  void move(Point to) { position_ = to; }
  /// Releases the button; the event goes to another program.
  void release();
  /// Releases the button; the event goes to a window of this program.
  void releaseInThisProgram();
  /// The user cancels the drag; the button stays down.
  void cancel();

  /// Refuses monitors of this kind from now on.
  void refuse(const Monitor& kind) { refused_.push_back(kind); }
  /// The monitors installed now, oldest first.
  [[nodiscard]] std::vector<Monitor> monitors() const;

private:
  struct Installed;
  class KeptMonitor;

  std::unique_ptr<Token> addGlobal(PointerEvent events, Handler handler) override;
  std::unique_ptr<Token> addLocal(PointerEvent events, Handler handler) override;
  std::unique_ptr<Token> addCancelled(std::function<void()> handler) override;
  Point position() override { return drag_ ? drag_->place().value_or(position_) : position_; }

  std::unique_ptr<Token> install(const Monitor& kind, std::function<void()> tell);
  void tell(const Monitor& kind);
  void tellRelease(Reach reach);

  Point position_;
  bool isDown_ = false;
  std::optional<PacedDrag> drag_;  ///< if it is paced
  std::vector<Monitor> refused_;
  std::vector<std::weak_ptr<const Installed>> installed_;
};

}  // namespace tilwin
