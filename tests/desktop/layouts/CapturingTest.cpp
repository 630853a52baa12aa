#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <map>

#include "core/layouts/LayoutPlanner.h"
#include "tests/desktop/layouts/LayoutDesktop.h"

namespace tilwin::desktop {

namespace {

class ACapturedLayout : public LayoutDesktop {
protected:
  Layout capture() {
    return LayoutPlanner::snapshot(
        provider().allWindows(), provider().displays(), "Captured", false,
        std::chrono::time_point_cast<std::chrono::microseconds>(std::chrono::system_clock::now()));
  }
};

struct Place {
  const char* application = nullptr;
  Rect arranged{};
  Rect scattered{};
};

constexpr std::array<Place, 4> places{{
    {"Editor", {37, 61, 803, 577}, {2500, 300, 500, 400}},  // on the other display
    {"Browser", {2017, 233, 901, 611}, {100, 100, 901, 611}},
    {"Player", {1113, 700, 777, 333}, {1113, 100, 300, 700}},
    {"Mail", {2680, 540, 680, 540}, {2670, 530, 680, 540}},  // nearly where it was
}};

}  // namespace

TEST_F(ACapturedLayout, BringsEveryWindowBackWithinAPoint) {
  const auto terminal = session().open(Application::xterm);
  std::map<WindowId, Rect> arranged{{terminal.window(), desktop().frame(terminal.window()).value()}};
  std::map<WindowId, Rect> scattered;
  for (const auto& [name, frame, elsewhere] : places) {
    const WindowId window = open(name, name, frame);
    arranged.emplace(window, frame);
    scattered.emplace(window, elsewhere);
  }
  const auto layout = savedAndLoaded(capture());
  ASSERT_EQ(layout.slots.size(), arranged.size());

  for (const auto& [window, frame] : scattered) placeByHand(window, frame);
  desktop().setMaximized(terminal.window(), true);
  ASSERT_TRUE(eventually([&] { return desktop().maximized(terminal.window()); }));

  EXPECT_TRUE(controller().apply(layout).unmatched.empty());
  for (const auto& [window, frame] : arranged) EXPECT_TRUE(stands(window, frame, 1));
}

TEST_F(ACapturedLayout, HoldsNoMinimizedWindow) {
  const auto editor = open("Editor", "Notes.txt");
  const auto hidden = open("Mail", "Inbox");
  desktop().set(hidden, WindowState::hidden, true);
  ASSERT_TRUE(eventually([&] { return desktop().has(hidden, WindowState::hidden); }));
  const auto layout = capture();
  ASSERT_EQ(layout.slots.size(), 1U);
  EXPECT_EQ(layout.slots.front().bundleID, desktop().wmClass(editor).second);
}

TEST_F(ACapturedLayout, NamesTheDisplaysItWasTakenOn) {
  open("Editor", "Notes.txt", {2000, 250, 640, 480});
  const auto layout = capture();
  EXPECT_EQ(layout.signature->key, "1920x1080@0,0|1440x900@1920,180");
  ASSERT_EQ(layout.slots.size(), 1U);
  EXPECT_EQ(layout.slots.front().displayIndex, 1);
}

}  // namespace tilwin::desktop
