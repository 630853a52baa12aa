#include "tests/contract/OverlaidDesktop.h"
#include "tests/contract/OverlayContract.h"

namespace tilwin::contract {
namespace {

using x11::OverlaidDesktop;

class X11OverlayWorld : public OverlayAmongWindowsWorld {
public:
  Overlay& overlay() override { return *overlay_; }
  void destroyOverlay() override {
    overlay_.reset();
    desk_.x().flush();
  }
  std::optional<Rect> seen() override {
    const auto window = desk_.sheetWindow();
    return window ? desk_.desktop().topLevelArea(*window) : std::nullopt;
  }
  int windows() override { return desk_.windows() - windowsBefore_; }
  bool settle(const std::function<bool()>& condition) override {
    return desk_.desktop().waitUntil(condition);
  }
  void settle() override {
    desk_.x().flush();
    desk_.desktop().settle();
  }

  void open(const Rect& at) override {
    window_.emplace(desk_.session().server().display(), desktop::TestWindowOptions{.area = at});
    EXPECT_TRUE(window_->waitUntil([this] { return window_->hasFocus(); }));
  }
  bool hasFocus() override { return window_->hasFocus() && desk_.desktop().activeWindow() == window_->id(); }
  bool isReachedByClick(Point at) override {
    desk_.session().input().click({static_cast<int>(at.x), static_cast<int>(at.y)});
    return window_->waitUntil([this] { return !window_->recorded().buttons.empty(); });
  }
  bool isInFront() override {
    const auto inView = desk_.desktop().inView();
    return !inView.empty() && inView.back() == desk_.sheetWindow();
  }

private:
  /// What the window manager shows of an earlier test's window may still be about to go.
  int windowsAtRest() {
    desk_.desktop().settle();
    return desk_.windows();
  }

  OverlaidDesktop& desk_ = OverlaidDesktop::plain();
  std::optional<desktop::TestWindow> window_;
  const int windowsBefore_ = windowsAtRest();
  std::optional<x11::X11Overlay> overlay_{std::in_place, desk_.x(), OverlaidDesktop::accent};
};

std::unique_ptr<OverlayAmongWindowsWorld> makeAmongWindows() { return std::make_unique<X11OverlayWorld>(); }
std::unique_ptr<OverlayWorld> makeX11OverlayWorld() { return makeAmongWindows(); }

}  // namespace

INSTANTIATE_TEST_SUITE_P(X11, OverlayContract, testing::Values(&makeX11OverlayWorld));
INSTANTIATE_TEST_SUITE_P(X11, OverlayAmongWindowsContract, testing::Values(&makeAmongWindows));

}  // namespace tilwin::contract
