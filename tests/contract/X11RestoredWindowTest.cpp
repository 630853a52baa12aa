#include <gtest/gtest.h>

#include <optional>

#include "tests/contract/MainLoop.h"
#include "tests/contract/X11Windows.h"

namespace tilwin::x11 {

namespace {

using desktop::Milliseconds;

constexpr Rect tile{0, 0, 960, 1080};
constexpr Rect wholeDisplay{0, 0, 1920, 1080};
/// Longer than a request may still be corrected.
constexpr Milliseconds corrections{1300};

class X11RestoredWindow : public X11Windows {
protected:
  void maximize(const desktop::TestWindow& window, bool on) {
    session.desktop().setMaximized(window.id(), on);
    ASSERT_TRUE(session.desktop().waitUntil([&] { return isMaximized(window) == on; }));
  }
  bool isMaximized(const desktop::TestWindow& window) { return session.desktop().maximized(window.id()); }

  void letCorrectionsPass() {
    (void)session.desktop().waitUntil(
        [&] {
          x->dispatch();
          runMainLoop(Milliseconds{1});
          return false;
        },
        corrections);
  }
};

}  // namespace

TEST_F(X11RestoredWindow, MaximisedOnceMoreByTheUserStaysSoWithItsFirstNormalFrameBeneath) {
  const auto window = open({.title = "text", .area = {400, 300, 500, 400}});
  ASSERT_TRUE(session.desktop().activate(window.id()));
  ASSERT_TRUE(focusedTitle());
  const auto normal = session.desktop().frame(window.id());
  ASSERT_TRUE(normal);
  maximize(window, true);
  ASSERT_TRUE(comesToStandAt(window, wholeDisplay));
  const auto whole = provider->focusedWindow();
  ASSERT_TRUE(whole);
  ASSERT_TRUE(provider->setFrame(whole->id, tile));
  ASSERT_TRUE(comesToStandAt(window, tile));
  maximize(window, true);
  ASSERT_TRUE(provider->restoreFrame(whole->id, whole->frame));
  letCorrectionsPass();
  EXPECT_TRUE(isMaximized(window));
  EXPECT_TRUE(comesToStandAt(window, wholeDisplay));
  maximize(window, false);
  EXPECT_TRUE(comesToStandAt(window, *normal));
}

}  // namespace tilwin::x11
