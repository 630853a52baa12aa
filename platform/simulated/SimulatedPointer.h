#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/ports/PointerMonitor.h"

namespace tilwin {

/// The mouse of a simulated desktop. Its hands tell the monitors before they return; they drag no window,
/// which is for `SimulatedWindows::moveByHand` to do first.
class SimulatedPointer final : public PointerMonitor {
public:
  enum class Reach {
    global,     ///< events of other programs' windows
    local,      ///< events of this program's own windows
    cancelled,  ///< the end of drags that the user called off
  };
  struct Monitor {
    Reach reach = Reach::global;
    std::optional<PointerEvent> events;  ///< nothing for `cancelled`

    bool operator==(const Monitor&) const = default;
  };

  /// The button goes down at a point in a window of another program.
  void press(Point at);
  /// The pointer moves and the monitors are told of it, if the button is down.
  void drag(Point to);
  /// The pointer moves before anybody is told of it.
  void move(Point to) { position_ = to; }
  void release();
  /// The button comes up, and a window of this program gets the event.
  void releaseInThisProgram();
  /// The user calls off the drag; the button stays down.
  void cancel();

  /// From now on monitors of this kind are refused.
  void refuse(const Monitor& kind) { refused_.push_back(kind); }
  /// What is installed now, in the order it was.
  [[nodiscard]] std::vector<Monitor> monitors() const;

private:
  struct Installed;
  class KeptMonitor;

  std::unique_ptr<Token> addGlobal(PointerEvent events, Handler handler) override;
  std::unique_ptr<Token> addLocal(PointerEvent events, Handler handler) override;
  std::unique_ptr<Token> addCancelled(std::function<void()> handler) override;
  Point position() override { return position_; }

  std::unique_ptr<Token> install(const Monitor& kind, std::function<void()> tell);
  void tell(const Monitor& kind);

  Point position_;
  bool isDown_ = false;
  std::vector<Monitor> refused_;
  std::vector<std::weak_ptr<const Installed>> installed_;
};

}  // namespace tilwin
