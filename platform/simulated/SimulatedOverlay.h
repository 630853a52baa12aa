#pragma once

#include <optional>

#include "core/geometry/Rect.h"
#include "platform/ports/Overlay.h"

namespace tilwin {

/// An overlay that nobody sees but tests.
class SimulatedOverlay final : public Overlay {
public:
  /// Where it is, while it is shown.
  [[nodiscard]] const std::optional<Rect>& visible() const { return visible_; }
  /// How often it has been put somewhere.
  [[nodiscard]] int showCount() const { return showCount_; }

private:
  void showAt(const Rect& frame) override {
    visible_ = frame;
    ++showCount_;
  }
  void hide() override { visible_.reset(); }

  std::optional<Rect> visible_;
  int showCount_ = 0;
};

}  // namespace tilwin
