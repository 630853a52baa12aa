#include "tests/desktop/drags/DragTest.h"

namespace tilwin::desktop {

namespace {

/// The display cut in two for one test.
class TwoDisplays {
public:
  explicit TwoDisplays(Session& session) : session_(session) {
    session_.server().splitIntoMonitors({1200, 720});
    session_.desktop().waitUntil([&] { return session_.desktop().monitors().size() == 2; });
  }
  TwoDisplays(const TwoDisplays&) = delete;
  TwoDisplays& operator=(const TwoDisplays&) = delete;
  ~TwoDisplays() { session_.server().splitIntoMonitors({}); }

private:
  Session& session_;
};

}  // namespace

TEST_F(Drags, AWindowDraggedToAnEdgeOrCornerIsPreviewedThereAndStandsThereAndCanBeRestored) {
  const TestWindow window = session().window();
  for (const auto& example : oneDisplayDrags) {
    expectSnapAndRestore(window.id(), example, std::string("one-display-") + example.action);
  }
}

TEST_F(Drags, OnTwoDisplaysTheEdgesAreThoseOfTheDisplayUnderThePointer) {
  const TwoDisplays displays(session());
  const TestWindow window = session().window();
  for (const auto& example : twoDisplayDrags) {
    expectSnapAndRestore(window.id(), example, std::string("two-displays-") + example.action);
  }
}

TEST_F(Drags, ThePreviewGoesFromZoneToZoneAndAwayBetweenThem) {
  const TwoDisplays displays(session());
  const TestWindow window = session().window();
  dragTo(atLeftEdge, window.id());
  EXPECT_TRUE(previews({0, 0, 600, 1080}));
  moveTo(inNoZone);
  EXPECT_TRUE(previewsNothing());
  moveTo({1919, 1079});
  EXPECT_TRUE(previews({1560, 540, 360, 540}));
  letGo();
  EXPECT_TRUE(staysAt(window.id(), {1560, 540, 360, 540}));
}

TEST_F(Drags, ASnapHoldsWhileTheManagerIsStillBusyWithTheMoves) {
  const TestWindow window = session().window();
  dragTo(atLeftEdge, window.id());
  EXPECT_TRUE(previews(leftHalf));
  for (int move = 1; move <= 300; ++move) hand().movePointer({move % 4, 540 + move % 50});
  letGo();
  EXPECT_TRUE(staysAt(window.id(), leftHalf));
}

TEST_F(Drags, AWindowIsLaidWithinTheMarginThatIsSet) {
  restartTilwinWith(R"({"gap":8,"outer":10})");
  const TestWindow window = session().window();
  expectSnapAndRestore(window.id(), {"leftHalf", atLeftEdge, {10, 10, 946, 1060}}, "margin");
}

TEST_F(Drags, AWindowThatDrawsItsHeaderBarVisiblyFillsTheHalf) {
  const auto application = session().open(Application::gtkHeaderBar);
  EXPECT_TRUE(stillSnaps(application.window()));
  press(restoreKeys);
  EXPECT_TRUE(staysAt(application.window(), startFrame));
}

}  // namespace tilwin::desktop
