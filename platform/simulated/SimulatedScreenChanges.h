#pragma once

#include <functional>
#include <utility>

#include "platform/ports/ScreenChanges.h"

namespace tilwin {

/// Tells of changes of a simulated desktop's displays.
class SimulatedScreenChanges final : public ScreenChanges {
public:
  /// The displays have changed, or the desktop says so without cause.
  void tell() {
    // A copy, as the handler may install another one.
    if (const auto handler = handler_) handler();
  }
  [[nodiscard]] bool hasHandler() const { return handler_ != nullptr; }

private:
  void onChange(std::function<void()> handler) override { handler_ = std::move(handler); }

  std::function<void()> handler_;
};

}  // namespace tilwin
