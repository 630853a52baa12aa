#include <gtest/gtest.h>

#include "tests/desktop/DesktopTest.h"

namespace tilwin::desktop {

namespace {

/// Longer than any manager wants a window to be held to an edge before it tiles it.
constexpr Milliseconds restAtEdge{500};

/// A window manager as it comes: it tiles windows itself that are dragged to an edge.
class OwnTiles : public testing::Test {
protected:
  void startTilwin(const std::string& settings = "{}") {
    std::string value;
    for (const char character : settings) value += character == '"' ? "\\\"" : std::string(1, character);
    session_.home().write("config/Tilwin/Tilwin.conf", "[General]\ntilwin.settings.v1=\"" + value + "\"\n");
    tilwin_ = std::make_unique<TilwinProcess>(session_, arguments().tilwin);
  }

  void dragTo(PixelPoint edge) {
    ASSERT_TRUE(desktop_.activate(window_.id()));
    desktop_.settle();
    desktop_.place(window_.id(), startFrame);
    ASSERT_TRUE(desktop_.waitForFrame(window_.id(), startFrame));
    session_.input().takeHold(desktop_.titleBar(window_.id()));
    session_.input().comeToRest(edge);
    desktop_.waitUntil([] { return false; }, restAtEdge);
    session_.input().buttonUp();
  }

  void press(const std::string& chord) { session_.input().press(chord); }

  testing::AssertionResult stands(const Rect& frame) {
    const bool came = desktop_.waitForFrame(window_.id(), frame);
    desktop_.settle(Milliseconds{400});
    const auto seen = desktop_.frame(window_.id());
    if (came && seen == frame) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "expected " << text(frame) << ", saw " << text(seen.value_or(Rect())) << "\n"
           << (tilwin_ ? tilwin_->log() : "");
  }

  Session session_{{.manager = arguments().manager, .setup = {.edgeTiling = true}}};
  Desktop& desktop_ = session_.desktop();
  TestWindow window_ = session_.window();
  std::unique_ptr<TilwinProcess> tilwin_;
};

}  // namespace

TEST_F(OwnTiles, AWindowInATileOfTheManagersObeysAShortcut) {
  dragTo({0, 540});
  ASSERT_TRUE(stands(leftHalf)) << "the manager has not tiled it";
  startTilwin();
  press("Control+Alt+k");
  EXPECT_TRUE(stands({960, 540, 960, 540}));
  press(restoreKeys);
  EXPECT_TRUE(stands(leftHalf));
}

TEST_F(OwnTiles, AWindowThatTheManagerHasMaximisedAtTheTopObeysAShortcut) {
  dragTo({960, 0});
  ASSERT_TRUE(stands(wholeDisplay)) << "the manager has not maximised it";
  startTilwin();
  press(leftHalfKeys);
  EXPECT_TRUE(stands(leftHalf));
}

TEST_F(OwnTiles, ADraggedWindowStandsAsPreviewedAndNotAsTheManagerTilesIt) {
  startTilwin(R"({"gap":8,"outer":10})");
  dragTo({0, 540});
  EXPECT_TRUE(stands({10, 10, 946, 1060}));
  press("Control+Alt+Right");
  EXPECT_TRUE(stands({964, 10, 946, 1060}));
}

TEST_F(OwnTiles, AHalfIsAHalfWhereTheManagerWouldMakeItAQuarter) {
  startTilwin();
  dragTo({0, 150});
  EXPECT_TRUE(stands(leftHalf));
  press("Control+Alt+k");
  EXPECT_TRUE(stands({960, 540, 960, 540}));
}

}  // namespace tilwin::desktop
