#include "platform/macos/overlay/MacOverlay.h"

#include <unistd.h>
#include <xcb/shape.h>

#include <algorithm>
#include <utility>

#include "platform/macos/system/MacMainQueue.h"
#include "tests/contract/OverlayContract.h"
#include "tests/macos/desktop/EventLoop.h"
#include "tests/macos/desktop/Living.h"
#include "tests/macos/desktop/MacDesktop.h"

namespace tilwin::macos {
namespace {

using namespace std::chrono_literals;
using desktop::WindowId;

constexpr Rect sheet{100, 80, 400, 300};

/// The windows of overlays in this process.
std::vector<NSWindow*> overlayWindows() {
  std::vector<NSWindow*> result;
  for (NSWindow* window in [NSApp windows]) {
    if ([[window contentView] isKindOfClass:[TWOverlayView class]]) result.push_back(window);
  }
  return result;
}

WindowId idOnServer(NSWindow* window) {
  return static_cast<WindowId>(reinterpret_cast<std::uintptr_t>([window windowRef]));
}

/// The window manager's frame around it.
WindowId onServer(NSWindow* window) { return macDesktop().desktop().topLevel(idOnServer(window)); }

class MacOverlayWorld : public contract::OverlayAmongWindowsWorld {
public:
  Overlay& overlay() override { return *overlay_; }
  void destroyOverlay() override { overlay_.reset(); }
  std::optional<Rect> seen() override {
    for (NSWindow* window : overlayWindows()) {
      if (desk_.viewable(onServer(window))) return desk_.topLevelArea(onServer(window));
    }
    return std::nullopt;
  }
  int windows() override { return static_cast<int>(overlayWindows().size()); }
  bool settle(const std::function<bool()>& condition) override {
    return runEventLoopUntil(
        [&] {
          const AutoreleasePool pool;
          return condition();
        },
        5s);
  }
  void settle() override {
    EXPECT_TRUE(finishTasks(queue_));
    desk_.settle();
    EXPECT_TRUE(finishTasks(queue_));
  }

  void open(const Rect& at) override {
    window_.emplace(macDesktop().server().display(),
                    desktop::TestWindowOptions{.area = at, .process = ::getppid()});
    EXPECT_TRUE(window_->waitUntil([this] { return window_->hasFocus(); }));
  }
  bool hasFocus() override { return window_->hasFocus() && desk_.activeWindow() == window_->id(); }
  bool isReachedByClick(Point at) override {
    letFrameTakeShape();
    macDesktop().input().click({static_cast<int>(at.x), static_cast<int>(at.y)});
    return window_->waitUntil([this] { return !window_->recorded().buttons.empty(); });
  }
  bool isInFront() override {
    const auto inView = desk_.inView();
    const auto place = [&](WindowId window) { return std::ranges::find(inView, desk_.topLevel(window)); };
    return place(window_->id()) < std::ranges::find(inView, onServer(overlayWindows().at(0))) &&
           place(window_->id()) != inView.end();
  }

private:
  /// Gives the frame of the overlay's window the shape in which that takes clicks; openbox does so only for a
  /// shape that is not empty.
  void letFrameTakeShape() {
    NSWindow* const window = overlayWindows().at(0);
    xcb_shape_combine(desk_.connection().get(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_SHAPE_SK_INPUT,
                      onServer(window), 0, 0, idOnServer(window));
    desk_.connection().sync();
  }

  AutoreleasePool pool_;
  MacMainQueue queue_;
  desktop::Desktop& desk_ = macDesktop().desktop();
  std::optional<desktop::TestWindow> window_;
  std::optional<MacOverlay> overlay_{std::in_place};
};

std::unique_ptr<contract::OverlayAmongWindowsWorld> makeMacAmongWindows() {
  return std::make_unique<MacOverlayWorld>();
}
std::unique_ptr<contract::OverlayWorld> makeMacOverlayWorld() { return makeMacAmongWindows(); }

/// What a view has drawn, read back from its window.
class Picture {
public:
  explicit Picture(NSView* view) {
    [view lockFocus];
    image_ = owned([[NSBitmapImageRep alloc] initWithFocusedViewRect:[view bounds]]);
    [view unlockFocus];
  }

  /// Fails unless the pixel has the accent colour with that opacity.
  void expect(int x, int y, double opacity) const {
    NSColor* const seen = [image_.get() colorAtX:x y:y];
    EXPECT_NEAR([seen alphaComponent], opacity, rounding) << x << "," << y;
    if (opacity == 0) return;
    NSColor* const accent = [[NSColor controlAccentColor] colorUsingColorSpaceName:NSDeviceRGBColorSpace];
    EXPECT_NEAR([seen redComponent], [accent redComponent], rounding / opacity) << x << "," << y;
    EXPECT_NEAR([seen greenComponent], [accent greenComponent], rounding / opacity) << x << "," << y;
    EXPECT_NEAR([seen blueComponent], [accent blueComponent], rounding / opacity) << x << "," << y;
  }

private:
  /// Of the pixel, of what was below it, and of the colour premultiplied by the opacity.
  static constexpr double rounding = 3.0 / 255;

  Held<NSBitmapImageRep*> image_;
};

struct MacOverlayTest : testing::Test {
  static NSWindow* window() {
    const auto all = overlayWindows();
    return all.size() == 1 ? all.front() : nil;
  }

  AutoreleasePool pool;
  MacOverlay overlay;
};

TEST_F(MacOverlayTest, IsAPlainClearWindowThatFloatsOnEveryDesktopAndTakesNoClick) {
  overlay.show(sheet);
  ASSERT_NE(window(), nil);
  EXPECT_EQ([window() styleMask], 0U);
  EXPECT_EQ([window() backingType], NSBackingStoreBuffered);
  EXPECT_EQ([window() level], 3);
  EXPECT_EQ([window() collectionBehavior], 73U);
  EXPECT_FALSE([window() isOpaque]);
  EXPECT_FALSE([window() hasShadow]);
  EXPECT_TRUE([window() ignoresMouseEvents]);
  EXPECT_EQ([[window() backgroundColor] alphaComponent], 0);
  EXPECT_FALSE([window() canBecomeKeyWindow]);
}

TEST_F(MacOverlayTest, ItsViewFillsItWhateverItsSize) {
  for (const Rect& at : {sheet, Rect{0, 0, 1920, 1080}, Rect{10, 20, 30, 40}}) {
    overlay.show(at);
    const NSRect bounds = [[window() contentView] bounds];
    EXPECT_EQ(bounds.size.width, at.width);
    EXPECT_EQ(bounds.size.height, at.height);
  }
  EXPECT_EQ([[window() contentView] autoresizingMask], NSUInteger(NSViewWidthSizable | NSViewHeightSizable));
}

TEST_F(MacOverlayTest, IsATranslucentSheetWithABorderAndRoundCorners) {
  constexpr double fill = OverlayStyle::fillOpacity;
  // The border lies over the fill.
  constexpr double border = fill + OverlayStyle::borderOpacity * (1 - fill);
  overlay.show({100, 80, 200, 100});
  overlay.show(sheet);
  const Picture picture([window() contentView]);
  for (const int y : {2, 150, 297}) picture.expect(200, y, fill);
  for (const int x : {2, 397}) picture.expect(x, 150, fill);
  for (const int y : {0, 1, 298, 299}) picture.expect(200, y, border);
  for (const int x : {0, 1, 398, 399}) picture.expect(x, 150, border);
  // On the diagonal the curve passes 2.9 points from the corner's lines, the border's inner edge 4.3.
  for (const auto& [inwards, opacity] : {std::pair{0, 0.0}, {3, border}, {5, fill}}) {
    for (const int x : {inwards, 399 - inwards}) {
      for (const int y : {inwards, 299 - inwards}) picture.expect(x, y, opacity);
    }
  }
}

TEST_F(MacOverlayTest, LeavesNoWindowBehind) {
  const Living living({"TWOverlayView", "NSWindow"});
  for (int time = 0; time < 3; ++time) {
    const AutoreleasePool inner;
    MacOverlay other;
    other.show(sheet);
    EXPECT_EQ(living.count(), 2);
    other.hide();
    other.show(sheet);
  }
  EXPECT_EQ(living.count(), 0);
  EXPECT_EQ(overlayWindows(), std::vector<NSWindow*>());
}

}  // namespace
}  // namespace tilwin::macos

namespace tilwin::contract {

INSTANTIATE_TEST_SUITE_P(MacOS, OverlayContract, testing::Values(&macos::makeMacOverlayWorld));
INSTANTIATE_TEST_SUITE_P(MacOS, OverlayAmongWindowsContract, testing::Values(&macos::makeMacAmongWindows));

}  // namespace tilwin::contract
