#include "platform/simulated/SimulatedAccessibleDesktop.h"
#include "platform/simulated/SimulatedSystem.h"
#include "tests/contract/OverlayContract.h"
#include "tests/contract/ScreensContract.h"

namespace tilwin::contract {
namespace {

class SimulatedOverlayWorld : public OverlayWorld {
public:
  Overlay& overlay() override { return *overlay_; }
  void destroyOverlay() override { overlay_.reset(); }
  std::optional<Rect> seen() override { return overlay_ ? overlay_->visible() : std::nullopt; }
  int windows() override { return overlay_ && overlay_->showCount() > 0 ? 1 : 0; }
  bool settle(const std::function<bool()>& condition) override { return condition(); }
  void settle() override {}

private:
  std::optional<SimulatedOverlay> overlay_{std::in_place};
};

std::unique_ptr<OverlayWorld> makeSimulatedOverlayWorld() {
  return std::make_unique<SimulatedOverlayWorld>();
}

class SimulatedScreensWorld : public ScreensWorld {
public:
  Screens& screens() override { return screens_; }
  void connect(const std::vector<Screen>& screens) override { screens_.connected = screens; }

private:
  SimulatedScreens screens_;
};

std::unique_ptr<ScreensWorld> makeSimulatedScreensWorld() {
  return std::make_unique<SimulatedScreensWorld>();
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Simulated, OverlayContract, testing::Values(&makeSimulatedOverlayWorld));
INSTANTIATE_TEST_SUITE_P(Simulated, ScreensContract, testing::Values(&makeSimulatedScreensWorld));

}  // namespace tilwin::contract
