#include "platform/x11/X11Overlay.h"

#include <gtest/gtest.h>

#include <QColor>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "tests/desktop/harness/Session.h"

namespace tilwin::x11 {

namespace {

using desktop::Manager;
using desktop::TestWindow;
using desktop::TestWindowOptions;
using desktop::WindowId;
using desktop::XcbPtr;

constexpr AccentColour shownAccent{0x35, 0x84, 0xe4};
constexpr QRgb backgroundColour = 0xff406030;
constexpr Rect sheet{100, 80, 400, 300};
/// Told to give every window a shadow.
const std::vector<std::string> picom{"picom", "--config", "/dev/null", "--backend", "xrender", "--shadow"};

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

/// A pixel of the screen and the colour it should have.
struct Spot {
  int x;
  int y;
  QRgb colour;
};

/// A desktop of one colour, with a program of its own on it that has an overlay.
class OverlaidDesktop {
public:
  explicit OverlaidDesktop(Manager manager, bool compositing)
      : session_({.manager = manager, .setup = {.compositing = compositing}, .screen = {800, 600}}) {
    setenv("DISPLAY", session_.server().display().c_str(), 1);
    background_.emplace(session_.server().display(),
                        TestWindowOptions{.area = {0, 0, 800, 600},
                                          .kind = desktop::WindowKind::desktop,
                                          .undecorated = true,
                                          .colour = backgroundColour & 0xffffffU});
    x_.emplace(log_);
    overlay_.emplace(*x_, shownAccent);
  }

  desktop::Session& session() { return session_; }
  X11Overlay& overlay() { return *overlay_; }

  WindowId background() { return session_.desktop().topLevel(background_->id()); }

  /// The first place that does not look as it should, in words; empty when all do.
  std::string wrong(const std::vector<Spot>& spots) {
    const auto image = desktop::screenshot(session_.desktop().connection());
    for (const auto& spot : spots) {
      const QColor seen(image.pixel(spot.x, spot.y));
      if (isClose(seen.rgb(), spot.colour)) continue;
      return std::to_string(spot.x) + "," + std::to_string(spot.y) + " is " + seen.name().toStdString() +
             ", not " + QColor(spot.colour).name().toStdString();
    }
    return {};
  }
  /// Gives a compositor time to paint.
  void expect(const std::vector<Spot>& spots) {
    session_.desktop().waitUntil([&] { return wrong(spots).empty(); });
    EXPECT_EQ(wrong(spots), "");
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
  /// Shows the overlay and waits until the server has dealt with that. The overlay's window.
  WindowId show(const Rect& at) {
    overlay_->show(at);
    const auto isThere = [&] {
      const auto window = sheetWindow();
      return window && session_.desktop().topLevelArea(*window) == at;
    };
    EXPECT_TRUE(session_.desktop().waitUntil(isThere)) << "not shown there";
    return sheetWindow().value_or(0);
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
  std::optional<TestWindow> background_;
  FailingLog log_;
  std::optional<X11Connection> x_;
  std::optional<X11Overlay> overlay_;
};

/// Where a shadow of that frame would fall, as far as there is screen.
std::vector<Spot> surroundings(const Rect& at) {
  const auto left = static_cast<int>(at.x);
  const auto top = static_cast<int>(at.y);
  const auto right = static_cast<int>(at.maxX()) - 1;
  const auto bottom = static_cast<int>(at.maxY()) - 1;
  std::vector<Spot> spots;
  for (const int gap : {1, 4}) {
    for (const int y : {top - gap, bottom + gap}) spots.push_back({left + 40, y, backgroundColour});
    for (const int x : {left - gap, right + gap}) spots.push_back({x, top + 40, backgroundColour});
  }
  std::erase_if(spots,
                [](const Spot& spot) { return spot.x < 0 || spot.x > 799 || spot.y < 0 || spot.y > 599; });
  return spots;
}

std::vector<Spot> translucentSheet(const Rect& at) {
  const QRgb fill = under(0.22, backgroundColour);
  const QRgb border = under(0.7, fill);
  const auto left = static_cast<int>(at.x);
  const auto top = static_cast<int>(at.y);
  const auto right = static_cast<int>(at.maxX()) - 1;
  const auto bottom = static_cast<int>(at.maxY()) - 1;
  const int middle = (left + right) / 2;
  auto spots = surroundings(at);
  for (const int y : {top + 2, (top + bottom) / 2, bottom - 2}) spots.push_back({middle, y, fill});
  for (const int x : {left + 2, right - 2}) spots.push_back({x, top + 40, fill});
  for (const int y : {top, top + 1, bottom - 1, bottom}) spots.push_back({middle, y, border});
  for (const int x : {left, left + 1, right - 1, right}) spots.push_back({x, top + 40, border});
  // On the diagonal the curve passes 2.9 pixels from the corner's lines, the border's inner edge 4.3.
  for (const bool isRight : {false, true}) {
    for (const bool isBottom : {false, true}) {
      const auto inwards = [&](int pixels, QRgb colour) {
        spots.push_back(
            {isRight ? right - pixels : left + pixels, isBottom ? bottom - pixels : top + pixels, colour});
      };
      inwards(0, backgroundColour);
      inwards(3, border);
      inwards(5, fill);
    }
  }
  return spots;
}

/// Nothing but the border of `sheet`, opaque.
std::vector<Spot> outlinedSheet() {
  const QRgb accent = qRgb(shownAccent.red, shownAccent.green, shownAccent.blue);
  std::vector<Spot> spots{{103, 83, accent}, {496, 376, accent}};
  for (const int y : {80, 81, 378, 379}) spots.push_back({300, y, accent});
  for (const int x : {100, 101, 498, 499}) spots.push_back({x, 200, accent});
  for (const int y : {79, 82, 200, 377, 380}) spots.push_back({300, y, backgroundColour});
  for (const int x : {99, 102, 497, 500}) spots.push_back({x, 200, backgroundColour});
  for (const int x : {100, 499}) spots.push_back({x, 379, backgroundColour});
  return spots;
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
  FailingLog log;
  X11Connection x(log);
  X11Overlay fresh(x, shownAccent);
  fresh.hide();
  desk_.session().desktop().settle();
  EXPECT_EQ(desk_.inView(), before);
}

TEST_F(X11OverlayTest, StandsWhereItIsShownAndMovesWithEachShow) {
  for (const Rect& at : {sheet, Rect{0, 0, 800, 600}, Rect{400, 300, 400, 300}, Rect{-20, -10, 300, 200}}) {
    EXPECT_NE(desk_.show(at), 0U);
  }
}

TEST_F(X11OverlayTest, IsGoneOnceHiddenAndBackWhenShownAgain) {
  desk_.show(sheet);
  desk_.overlay().hide();
  EXPECT_TRUE(desk_.session().desktop().waitUntil([this] { return !desk_.sheetWindow(); }));
  desk_.overlay().hide();
  desk_.show(sheet);
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
  desk_.show(sheet);
  desk_.session().desktop().settle();
  EXPECT_TRUE(window.hasFocus());
  EXPECT_EQ(desk_.session().desktop().activeWindow(), window.id());
  EXPECT_EQ(desk_.session().desktop().clients().size(), 2U);
  EXPECT_NE(desk_.session().desktop().clients().back(), desk_.sheetWindow());
}

TEST_F(X11OverlayTest, LetsClicksThroughToTheWindowBelow) {
  const auto window = desk_.session().window({.area = {150, 120, 300, 200}});
  desk_.show(sheet);
  desk_.session().input().movePointer({300, 240});
  EXPECT_EQ(desk_.underPointer(), desk_.session().desktop().topLevel(window.id()));
  desk_.session().input().click({300, 240});
  EXPECT_TRUE(window.waitUntil([&] { return !window.recorded().buttons.empty(); }));
}

TEST_F(X11OverlayTest, LetsClicksThroughItsBorder) {
  desk_.show(sheet);
  desk_.session().input().movePointer({300, 80});
  EXPECT_EQ(desk_.underPointer(), desk_.background());
}

TEST_F(X11OverlayTest, IsInFrontAfterEachShow) {
  desk_.show(sheet);
  const auto window = desk_.session().window({.area = {150, 120, 300, 200}, .overrideRedirect = true});
  ASSERT_EQ(desk_.inView().back(), window.id());
  desk_.overlay().show(sheet);
  EXPECT_TRUE(desk_.session().desktop().waitUntil([&] { return desk_.inView().back() != window.id(); }));
  EXPECT_EQ(desk_.inView().back(), desk_.sheetWindow());
}

TEST_F(X11OverlayTest, IsARingWithoutACompositor) {
  desk_.overlay().show(sheet);
  desk_.expect(outlinedSheet());
}

TEST_F(X11OverlayTest, KeepsTheRingOnItsEdgeWhenItsSizeChanges) {
  desk_.overlay().show({0, 0, 200, 200});
  desk_.overlay().show(sheet);
  desk_.expect(outlinedSheet());
}

TEST_F(X11OverlayTest, FitsTheNextShowWhenACompositorHasComeOrGone) {
  desk_.overlay().show(sheet);
  desk_.expect(outlinedSheet());
  desk_.overlay().hide();
  auto compositor = desk_.startCompositor();
  desk_.overlay().show(sheet);
  desk_.expect(translucentSheet(sheet));
  desk_.end(compositor);
  desk_.overlay().show(sheet);
  desk_.expect(outlinedSheet());
}

TEST_P(CompositedOverlay, IsATranslucentSheetWithABorderAndRoundCorners) {
  OverlaidDesktop desk(GetParam().value_or(Manager::openbox), true);
  std::optional<desktop::ChildProcess> compositor;
  if (!GetParam()) compositor = desk.startCompositor();
  ASSERT_TRUE(desk.session().desktop().waitUntil([&] { return desk.session().desktop().composited(); }));
  desk.overlay().show({0, 0, 200, 200});
  for (const Rect& at : {sheet, Rect{0, 0, 800, 600}, Rect{400, 0, 400, 600}}) {
    desk.overlay().show(at);
    desk.expect(translucentSheet(at));
  }
  desk.overlay().hide();
  desk.expect({{600, 300, backgroundColour}});
  desk.overlay().show(sheet);
  desk.expect(translucentSheet(sheet));
}

INSTANTIATE_TEST_SUITE_P(X11, CompositedOverlay,
                         testing::Values(std::nullopt, Manager::xfwm4, Manager::metacity),
                         [](const auto& entry) {
                           return entry.param ? desktop::traits(*entry.param).name : "picom";
                         });

}  // namespace tilwin::x11
