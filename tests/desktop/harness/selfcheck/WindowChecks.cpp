#include <gtest/gtest.h>

#include <algorithm>

#include "tests/desktop/harness/Session.h"

namespace tilwin::desktop {

namespace {

class OwnWindows : public testing::Test {
protected:
  bool listed(WindowId window) {
    const auto clients = desktop_.clients();
    return std::find(clients.begin(), clients.end(), window) != clients.end();
  }

  Session session_;
  Desktop& desktop_ = session_.desktop();
};

}  // namespace

TEST_F(OwnWindows, AreWhoTheySayTheyAre) {
  const TestWindow window(session_.server().display(),
                          {.instance = "one", .className = "Two", .title = "Three"});
  EXPECT_EQ(desktop_.wmClass(window.id()), std::make_pair(std::string("one"), std::string("Two")));
  EXPECT_EQ(desktop_.title(window.id()), "Three");
  EXPECT_EQ(desktop_.process(window.id()), getpid());
  EXPECT_EQ(desktop_.windowOfClass("Two"), window.id());
}

TEST_F(OwnWindows, OfAFixedSizeKeepIt) {
  const TestWindow window(session_.server().display(), {.fixedSize = true});
  desktop_.place(window.id(), {0, 0, 960, 1080});
  desktop_.settle();
  EXPECT_EQ(desktop_.clientArea(window.id()).value().width, 640);
  EXPECT_EQ(desktop_.clientArea(window.id()).value().height, 480);
}

TEST_F(OwnWindows, WithASmallestSizeDoNotGoBelowIt) {
  const TestWindow window(session_.server().display(), {.minimum = {500, 400}});
  desktop_.place(window.id(), {0, 0, 300, 300});
  desktop_.settle();
  EXPECT_EQ(desktop_.clientArea(window.id()).value().width, 500);
}

TEST_F(OwnWindows, WithIncrementsTakeWholeSteps) {
  const TestWindow window(session_.server().display(), {.increment = {10, 20}, .base = {4, 6}});
  desktop_.place(window.id(), {0, 0, 960, 1080});
  desktop_.settle();
  const auto area = desktop_.clientArea(window.id());
  ASSERT_TRUE(area.has_value());
  EXPECT_EQ((static_cast<int>(area->width) - 4) % 10, 0);
  EXPECT_EQ((static_cast<int>(area->height) - 6) % 20, 0);
}

TEST_F(OwnWindows, PastTheManagerAreNotListed) {
  const TestWindow popup(session_.server().display(), {.overrideRedirect = true});
  EXPECT_TRUE(desktop_.viewable(popup.id()));
  EXPECT_FALSE(listed(popup.id()));
}

TEST_F(OwnWindows, AreAskedToClose) {
  const TestWindow window(session_.server().display());
  desktop_.close(window.id());
  EXPECT_TRUE(window.waitUntil([&] { return window.recorded().closeRequests == 1; }));
}

TEST_F(OwnWindows, GoAndComeBack) {
  TestWindow window(session_.server().display());
  window.unmap();
  EXPECT_TRUE(desktop_.waitUntil([&] { return !listed(window.id()); }));
  window.map();
  EXPECT_TRUE(desktop_.waitUntil([&] { return listed(window.id()) && desktop_.viewable(window.id()); }));
  window.destroy();
  EXPECT_TRUE(desktop_.waitUntil([&] { return !desktop_.clientArea(window.id()); }));
}

TEST_F(OwnWindows, MoveAndResizeThemselves) {
  TestWindow window(session_.server().display());
  window.moveTo({700, 300});
  EXPECT_TRUE(desktop_.waitUntil([&] { return desktop_.frame(window.id()).value().x == 700; }));
  window.resizeTo({321, 234});
  EXPECT_TRUE(desktop_.waitUntil([&] { return desktop_.clientArea(window.id()).value().width == 321; }));
}

TEST_F(OwnWindows, ComeUpWithoutAnyManager) {
  session_.manager().stop();
  const TestWindow window(session_.server().display());
  EXPECT_TRUE(desktop_.viewable(window.id()));
  EXPECT_FALSE(desktop_.managed());
  session_.manager().start();
  EXPECT_TRUE(desktop_.waitUntil([&] { return listed(window.id()); }));
}

}  // namespace tilwin::desktop
