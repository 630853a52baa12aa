#include "platform/x11/X11Overlay.h"

#include <gtest/gtest.h>

#include <QColor>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

#include "tests/desktop/harness/Session.h"

namespace tilwin::x11 {

namespace {

using desktop::Manager;
using desktop::PixelPoint;
using desktop::TestWindow;
using desktop::TestWindowOptions;
using desktop::WindowId;
using desktop::XcbPtr;

constexpr AccentColour shownAccent{0x35, 0x84, 0xe4};
constexpr QRgb backgroundColour = 0xff406030;
constexpr Rect sheet{100, 80, 400, 300};
const std::vector<std::string> picom{"picom", "--config", "/dev/null", "--backend", "xrender"};

class FailingLog : public SystemLog {
public:
  void write(std::string_view line) override { ADD_FAILURE() << "logged: " << line; }
};

/// What a layer of the accent colour of that opacity makes of a colour below it, by the definition of "over".
QRgb under(double opacity, QRgb below) {
  const auto blend = [&](int accent, int old) {
    return static_cast<int>(std::lround(accent * opacity + old * (1 - opacity)));
  };
  return qRgb(blend(shownAccent.red, qRed(below)), blend(shownAccent.green, qGreen(below)),
              blend(shownAccent.blue, qBlue(below)));
}

/// Two roundings, of the pixel and of what the compositor makes of it, and one for its idea of 255.
constexpr int roundings = 3;

bool isClose(QRgb first, QRgb second) {
  return std::abs(qRed(first) - qRed(second)) <= roundings &&
         std::abs(qGreen(first) - qGreen(second)) <= roundings &&
         std::abs(qBlue(first) - qBlue(second)) <= roundings;
}

/// A desktop of one colour, with a program of its own on it that has an overlay.
class OverlaidDesktop {
public:
  explicit OverlaidDesktop(Manager manager, bool compositing)
      : session_({.manager = manager, .setup = {.compositing = compositing}, .screen = {800, 600}}) {
    setenv("DISPLAY", session_.server().display().c_str(), 1);
    paintBackground(backgroundColour);
    x_.emplace(log_);
    overlay_.emplace(*x_, shownAccent);
  }

  desktop::Session& session() { return session_; }
  X11Overlay& overlay() { return *overlay_; }
  X11Connection& x() { return *x_; }

  void paintBackground(QRgb colour) {
    auto& witness = session_.desktop().connection();
    const std::uint32_t pixel = colour & 0xffffffU;
    xcb_change_window_attributes(witness.get(), witness.root(), XCB_CW_BACK_PIXEL, &pixel);
    xcb_clear_area(witness.get(), 0, witness.root(), 0, 0, 0, 0);
    witness.sync();
  }

  QRgb pixel(int x, int y) {
    return desktop::screenshot(session_.desktop().connection(),
                               Rect{static_cast<double>(x), static_cast<double>(y), 1, 1})
               .pixel(0, 0) |
           0xff000000U;
  }
  /// Waits for a compositor to paint it so. Says what was there instead when it does not.
  testing::AssertionResult becomes(int x, int y, QRgb wanted) {
    if (session_.desktop().waitUntil([&] { return isClose(pixel(x, y), wanted); })) {
      return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << x << "," << y << " is " << std::hex << pixel(x, y) << ", not " << wanted;
  }

  /// The children of the root, bottom to top, that can be seen.
  std::vector<WindowId> inView() {
    auto& witness = session_.desktop().connection();
    const XcbPtr<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(witness.get(), xcb_query_tree(witness.get(), witness.root()), nullptr));
    std::vector<WindowId> result;
    for (int index = 0; index < xcb_query_tree_children_length(tree.get()); ++index) {
      const auto window = xcb_query_tree_children(tree.get())[index];
      if (session_.desktop().viewable(window)) result.push_back(window);
    }
    return result;
  }
  /// The overlay's window, if it is in view.
  std::optional<WindowId> sheetWindow() {
    for (const auto window : inView()) {
      if (session_.desktop().wmClass(window).second == "Tilwin") return window;
    }
    return std::nullopt;
  }
  WindowId underPointer() {
    auto& witness = session_.desktop().connection();
    const XcbPtr<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(witness.get(), xcb_query_pointer(witness.get(), witness.root()), nullptr));
    return pointer->child;
  }

  desktop::ChildProcess startCompositor() {
    auto compositor = session_.start("picom", picom);
    EXPECT_TRUE(session_.desktop().waitUntil([this] { return session_.desktop().composited(); },
                                             desktop::startTimeout));
    return compositor;
  }
  void end(desktop::ChildProcess& compositor) {
    compositor.end();
    EXPECT_TRUE(session_.desktop().waitUntil([this] { return !session_.desktop().composited(); }));
  }

private:
  desktop::Session session_;
  FailingLog log_;
  std::optional<X11Connection> x_;
  std::optional<X11Overlay> overlay_;
};

void expectTranslucentSheet(OverlaidDesktop& desk, const Rect& at, QRgb below) {
  const QRgb fill = under(0.22, below);
  const QRgb border = under(0.7, fill);
  const auto left = static_cast<int>(at.x);
  const auto top = static_cast<int>(at.y);
  const auto right = static_cast<int>(at.maxX()) - 1;
  const auto bottom = static_cast<int>(at.maxY()) - 1;
  const int middle = (left + right) / 2;
  EXPECT_TRUE(desk.becomes(middle, (top + bottom) / 2, fill));
  for (const int y : {top, top + 1, bottom - 1, bottom}) EXPECT_TRUE(desk.becomes(middle, y, border));
  for (const int x : {left, left + 1, right - 1, right}) EXPECT_TRUE(desk.becomes(x, top + 40, border));
  for (const int y : {top + 2, bottom - 2}) EXPECT_TRUE(desk.becomes(middle, y, fill));
  for (const int x : {left, right}) {
    for (const int y : {top, bottom}) EXPECT_TRUE(desk.becomes(x, y, below));
  }
  // On the diagonal the curve passes 2.93 pixels from the corner, the border's inner edge 4.34.
  EXPECT_TRUE(desk.becomes(left + 3, top + 3, under(0.98 * 0.766, below)) ||
              desk.becomes(left + 3, top + 3, border));
  EXPECT_TRUE(desk.becomes(right - 6, bottom - 6, fill));
}

void expectRing(OverlaidDesktop& desk, QRgb below) {
  const QRgb accent = under(1, 0);
  EXPECT_TRUE(desk.becomes(300, 80, accent));
  EXPECT_TRUE(desk.becomes(300, 81, accent));
  EXPECT_TRUE(desk.becomes(100, 200, accent));
  EXPECT_TRUE(desk.becomes(499, 379 - 40, accent));
  EXPECT_TRUE(desk.becomes(300, 82, below));
  EXPECT_TRUE(desk.becomes(300, 200, below));
  EXPECT_TRUE(desk.becomes(100, 80, below));
  EXPECT_TRUE(desk.becomes(499, 379, below));
}

OverlaidDesktop& plainDesk() {
  static OverlaidDesktop desk(Manager::openbox, false);
  return desk;
}

class X11OverlayTest : public testing::Test {
protected:
  ~X11OverlayTest() override { desk_.overlay().hide(); }

  OverlaidDesktop& desk_ = plainDesk();
};

/// Managers that composite by themselves; nothing: picom does, under openbox.
class CompositedOverlay : public testing::TestWithParam<std::optional<Manager>> {};

}  // namespace

TEST_F(X11OverlayTest, MakesNoWindowBeforeItIsShown) {
  const auto before = desk_.inView();
  X11Overlay fresh(desk_.x(), shownAccent);
  fresh.hide();
  desk_.session().desktop().settle();
  EXPECT_EQ(desk_.inView(), before);
}

TEST_F(X11OverlayTest, StandsWhereItIsShownAndMovesWithEachShow) {
  for (const Rect& at : {sheet, Rect{0, 0, 800, 600}, Rect{400, 300, 400, 300}, Rect{-20, -10, 300, 200}}) {
    desk_.overlay().show(at);
    const auto window = desk_.sheetWindow();
    ASSERT_TRUE(window);
    EXPECT_EQ(desk_.session().desktop().topLevelArea(*window), at);
  }
}

TEST_F(X11OverlayTest, IsGoneOnceHiddenAndBackWhenShownAgain) {
  desk_.overlay().show(sheet);
  EXPECT_TRUE(desk_.sheetWindow());
  desk_.overlay().hide();
  EXPECT_TRUE(desk_.session().desktop().waitUntil([this] { return !desk_.sheetWindow(); }));
  desk_.overlay().hide();
  desk_.overlay().show(sheet);
  EXPECT_TRUE(desk_.sheetWindow());
}

TEST_F(X11OverlayTest, IsNotShownOnAFrameOutsideOfAnyScreen) {
  desk_.overlay().show({0, 0, std::nan(""), 100});
  desk_.overlay().show({1e9, 0, 100, 100});
  desk_.overlay().show({0, 0, 0, 100});
  desk_.session().desktop().settle();
  EXPECT_FALSE(desk_.sheetWindow());
}

TEST_F(X11OverlayTest, TakesNoFocusAndIsInNoListOfWindows) {
  const auto window = desk_.session().window({.area = {150, 120, 300, 200}});
  ASSERT_TRUE(window.waitUntil([&] { return window.hasFocus(); }));
  desk_.overlay().show(sheet);
  desk_.session().desktop().settle();
  EXPECT_TRUE(window.hasFocus());
  EXPECT_EQ(desk_.session().desktop().activeWindow(), window.id());
  EXPECT_EQ(desk_.session().desktop().clients(), std::vector{window.id()});
}

TEST_F(X11OverlayTest, LetsClicksThroughToTheWindowBelow) {
  const auto window = desk_.session().window({.area = {150, 120, 300, 200}});
  desk_.overlay().show(sheet);
  desk_.session().input().movePointer({300, 240});
  EXPECT_EQ(desk_.underPointer(), desk_.session().desktop().topLevel(window.id()));
  desk_.session().input().click({300, 240});
  EXPECT_TRUE(window.waitUntil([&] { return !window.recorded().buttons.empty(); }));
}

TEST_F(X11OverlayTest, LetsClicksThroughItsBorder) {
  desk_.overlay().show(sheet);
  desk_.session().input().movePointer({300, 80});
  EXPECT_EQ(desk_.underPointer(), 0U);
}

TEST_F(X11OverlayTest, IsInFrontAfterEachShow) {
  desk_.overlay().show(sheet);
  const auto window = desk_.session().window({.area = {150, 120, 300, 200}, .overrideRedirect = true});
  ASSERT_NE(desk_.inView().back(), desk_.sheetWindow());
  desk_.overlay().show(sheet);
  EXPECT_EQ(desk_.inView().back(), desk_.sheetWindow());
}

TEST_F(X11OverlayTest, IsARingWithoutACompositor) {
  desk_.overlay().show(sheet);
  expectRing(desk_, backgroundColour);
}

TEST_F(X11OverlayTest, KeepsTheRingOnItsEdgeWhenItsSizeChanges) {
  desk_.overlay().show({0, 0, 200, 200});
  desk_.overlay().show(sheet);
  expectRing(desk_, backgroundColour);
}

TEST_F(X11OverlayTest, FitsTheNextShowWhenACompositorHasComeOrGone) {
  desk_.overlay().show(sheet);
  expectRing(desk_, backgroundColour);
  desk_.overlay().hide();
  auto compositor = desk_.startCompositor();
  desk_.overlay().show(sheet);
  expectTranslucentSheet(desk_, sheet, backgroundColour);
  desk_.end(compositor);
  desk_.overlay().show(sheet);
  expectRing(desk_, backgroundColour);
}

TEST_P(CompositedOverlay, IsATranslucentSheetWithABorderAndRoundCorners) {
  OverlaidDesktop desk(GetParam().value_or(Manager::openbox), true);
  std::optional<desktop::ChildProcess> compositor;
  if (!GetParam()) compositor = desk.startCompositor();
  ASSERT_TRUE(desk.session().desktop().waitUntil([&] { return desk.session().desktop().composited(); }));
  desk.overlay().show({0, 0, 200, 200});
  for (const Rect& at : {sheet, Rect{0, 0, 800, 600}, Rect{400, 0, 400, 600}}) {
    desk.overlay().show(at);
    expectTranslucentSheet(desk, at, backgroundColour);
  }
  desk.overlay().hide();
  EXPECT_TRUE(desk.becomes(600, 300, backgroundColour));
  desk.overlay().show(sheet);
  expectTranslucentSheet(desk, sheet, backgroundColour);
}

INSTANTIATE_TEST_SUITE_P(X11, CompositedOverlay,
                         testing::Values(std::nullopt, Manager::xfwm4, Manager::metacity),
                         [](const auto& entry) {
                           return entry.param ? desktop::traits(*entry.param).name : "picom";
                         });

}  // namespace tilwin::x11
