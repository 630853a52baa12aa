#include "core/snap/SnapController.h"

#include "tests/core/snap/Snapping.h"

namespace tilwin {
namespace {

constexpr Rect leftTwoThirds{0, 25, 960, 875};
constexpr Rect leftThird{0, 25, 480, 875};
constexpr Rect rightHalf{720, 25, 720, 875};
constexpr Rect rightTwoThirds{480, 25, 960, 875};

struct SnapControllerTest : testing::Test, Snapping {};

/// Counts what the controller asks before passing it on.
class CountingProvider : public WindowProvider {
public:
  explicit CountingProvider(std::shared_ptr<WindowProvider> inner) : inner_(std::move(inner)) {}

  std::vector<DisplayInfo> displays() override { return ++displayQueries, inner_->displays(); }
  std::optional<WindowInfo> focusedWindow() override { return ++focusQueries, inner_->focusedWindow(); }
  std::vector<WindowInfo> allWindows() override { return ++listings, inner_->allWindows(); }
  bool applyFrame(std::int64_t id, const Rect& frame) override {
    return ++moves, inner_->setFrame(id, frame);
  }

  int displayQueries = 0;
  int focusQueries = 0;
  int listings = 0;
  int moves = 0;

private:
  std::shared_ptr<WindowProvider> inner_;
};

TEST_F(SnapControllerTest, StartsWithoutMarginsCyclingWidthsAndIgnoringNobody) {
  EXPECT_EQ(controller.outer, 0);
  EXPECT_EQ(controller.gap, 0);
  EXPECT_TRUE(controller.cycleWidths);
  EXPECT_TRUE(controller.ignoredBundleIDs.empty());
}

TEST_F(SnapControllerTest, AnActionMovesTheFocusedWindow) {
  const auto behind = open(somewhere);
  const auto window = open(somewhere);
  EXPECT_TRUE(controller.perform(SnapAction::topRight));
  EXPECT_EQ(frame(window), (Rect{720, 25, 720, 438}));
  EXPECT_EQ(frame(behind), somewhere);
}

TEST_F(SnapControllerTest, MarginAndGapAreKept) {
  const auto window = open(somewhere);
  controller.outer = 8;
  controller.gap = 8;
  EXPECT_TRUE(controller.perform(SnapAction::rightHalf));
  EXPECT_EQ(frame(window), (Rect{724, 33, 708, 859}));
}

TEST_F(SnapControllerTest, RepeatingAHalfCyclesTheWidthAndComesBack) {
  const auto window = open(somewhere);
  for (const Rect& expected : {leftHalf, leftTwoThirds, leftThird, leftHalf, leftTwoThirds}) {
    EXPECT_TRUE(controller.perform(SnapAction::leftHalf));
    EXPECT_EQ(frame(window), expected);
  }
}

TEST_F(SnapControllerTest, AnyCommandOfASideTakesTheNextStepOfItsCycle) {
  const auto window = open(leftHalf);
  EXPECT_TRUE(controller.perform(SnapAction::leftThird));
  EXPECT_EQ(frame(window), leftTwoThirds);
  EXPECT_TRUE(controller.perform(SnapAction::leftTwoThirds));
  EXPECT_EQ(frame(window), leftThird);
}

TEST_F(SnapControllerTest, TheOtherSideStartsItsOwnCycle) {
  const auto window = open(leftHalf);
  EXPECT_TRUE(controller.perform(SnapAction::rightHalf));
  EXPECT_EQ(frame(window), rightHalf);
  EXPECT_TRUE(controller.perform(SnapAction::rightHalf));
  EXPECT_EQ(frame(window), rightTwoThirds);
}

TEST_F(SnapControllerTest, WithoutCyclingRepeatingAHalfLeavesItThere) {
  const auto window = open(somewhere);
  controller.cycleWidths = false;
  EXPECT_TRUE(controller.perform(SnapAction::leftHalf));
  EXPECT_TRUE(controller.perform(SnapAction::leftHalf));
  EXPECT_EQ(frame(window), leftHalf);
  EXPECT_EQ(moves(), 1);
}

TEST_F(SnapControllerTest, AWindowThatRoundsItsSizeCyclesLikeAnyOther) {
  const auto window = desktop.windows.open({.frame = somewhere, .widthStep = 37, .heightStep = 41});
  EXPECT_TRUE(controller.perform(SnapAction::leftHalf));
  EXPECT_EQ(frame(window).width, 703);
  EXPECT_TRUE(controller.perform(SnapAction::leftHalf));
  EXPECT_EQ(frame(window).width, 925);
}

TEST_F(SnapControllerTest, AWindowAtTheTargetWithinAPointIsLeftThereAndNotRemembered) {
  const auto window = open({721, 24, 719, 876});
  controller.cycleWidths = false;
  EXPECT_TRUE(controller.perform(SnapAction::rightHalf));
  EXPECT_EQ(moves(), 0);
  EXPECT_EQ(controller.originalFrame(window), std::nullopt);
  EXPECT_EQ(events, std::vector{Event(window, SnapAction::rightHalf)});
}

TEST_F(SnapControllerTest, AWindowMoreThanAPointAwayIsMoved) {
  const auto window = open({721.5, 25, 720, 875});
  controller.cycleWidths = false;
  EXPECT_TRUE(controller.perform(SnapAction::rightHalf));
  EXPECT_EQ(frame(window), rightHalf);
}

TEST_F(SnapControllerTest, TheEventNamesTheActionAskedForNotTheOneCycledTo) {
  const auto window = open(leftHalf);
  EXPECT_TRUE(controller.perform(SnapAction::leftHalf));
  EXPECT_EQ(frame(window), leftTwoThirds);
  EXPECT_EQ(events, std::vector{Event(window, SnapAction::leftHalf)});
}

TEST_F(SnapControllerTest, WorksWithoutAnyoneToTell) {
  const auto window = open(somewhere);
  controller.onEvent = nullptr;
  EXPECT_TRUE(controller.perform(SnapAction::leftHalf));
  EXPECT_TRUE(controller.snap(window, SnapAction::rightHalf, display(0), somewhere));
  EXPECT_EQ(frame(window), rightHalf);
}

TEST_F(SnapControllerTest, WhoeverIsToldMayBeReplacedMeanwhile) {
  const auto window = open(somewhere);
  int told = 0;
  const auto tellOnce = [&] {
    const auto kept = std::make_shared<int>();
    controller.onEvent = [this, &told, kept](std::int64_t /*window*/, SnapAction /*action*/) {
      // Held apart from this function, which would not outlive its end.
      int& count = told;
      const std::weak_ptr<int> own = kept;
      controller.onEvent = nullptr;
      if (!own.expired()) ++count;
    };
  };
  tellOnce();
  EXPECT_TRUE(controller.perform(SnapAction::leftHalf));
  tellOnce();
  EXPECT_TRUE(controller.snap(window, SnapAction::rightHalf, display(0), somewhere));
  EXPECT_EQ(told, 2) << "each lives until it has returned";
}

TEST_F(SnapControllerTest, WithoutAFocusedWindowNothingHappens) {
  open(somewhere);
  desktop.windows.unfocus();
  EXPECT_FALSE(controller.perform(SnapAction::leftHalf));
  EXPECT_TRUE(events.empty());
  EXPECT_EQ(moves(), 0);
}

TEST_F(SnapControllerTest, WithoutAProviderEveryOperationFails) {
  SnapController orphan{std::weak_ptr<WindowProvider>()};
  EXPECT_FALSE(orphan.perform(SnapAction::leftHalf));
  EXPECT_FALSE(orphan.snap(1, SnapAction::leftHalf, display(0), somewhere));
  EXPECT_EQ(orphan.originalFrame(1), std::nullopt);
}

TEST_F(SnapControllerTest, TheProviderIsNotKeptAlive) {
  auto provider = std::make_shared<CountingProvider>(desktop.provider());
  SnapController other(provider);
  const std::weak_ptr<WindowProvider> watched = provider;
  provider.reset();
  EXPECT_TRUE(watched.expired());
  EXPECT_FALSE(other.perform(SnapAction::leftHalf));
}

TEST_F(SnapControllerTest, EachActionAsksForTheFocusAndTheDisplaysOnce) {
  const auto provider = std::make_shared<CountingProvider>(desktop.provider());
  SnapController counted(provider);
  open(somewhere);
  EXPECT_TRUE(counted.perform(SnapAction::leftHalf));
  EXPECT_EQ(provider->focusQueries, 1);
  EXPECT_EQ(provider->displayQueries, 1);
  EXPECT_EQ(provider->listings, 0);
  EXPECT_EQ(provider->moves, 1);
  EXPECT_TRUE(counted.perform(SnapAction::restore));
  EXPECT_EQ(provider->focusQueries, 2);
  EXPECT_EQ(provider->moves, 2);
}

TEST_F(SnapControllerTest, WithoutDisplaysNothingHappens) {
  const auto window = open(somewhere);
  desktop.windows.setDisplays({});
  for (const SnapAction action : SnapActions::all()) EXPECT_FALSE(controller.perform(action));
  EXPECT_EQ(frame(window), somewhere);
}

TEST_F(SnapControllerTest, WindowsOfIgnoredApplicationsAreNotMovedByAnyAction) {
  const auto window = desktop.windows.open({.bundleID = "org.example.Game", .frame = somewhere});
  controller.ignoredBundleIDs = {"org.example.Game"};
  controller.remember({.id = window, .frame = {0, 0, 10, 10}});
  for (const SnapAction action : SnapActions::all()) EXPECT_FALSE(controller.perform(action));
  EXPECT_EQ(frame(window), somewhere);
  EXPECT_TRUE(controller.originalFrame(window).has_value());
}

TEST_F(SnapControllerTest, AWindowThatClosesBetweenTheQueryAndTheMoveIsAFailure) {
  desktop.windows.open({.frame = somewhere, .vanishesOnceSeen = true});
  EXPECT_FALSE(controller.perform(SnapAction::leftHalf));
  EXPECT_TRUE(events.empty());
}

TEST_F(SnapControllerTest, AMoveThatFailsLeavesTheRememberedFrameInPlace) {
  const auto window = desktop.windows.open({.frame = somewhere, .answer = SimulatedWindow::Answer::refuses});
  EXPECT_FALSE(controller.perform(SnapAction::leftHalf));
  EXPECT_EQ(controller.originalFrame(window), somewhere);
  EXPECT_TRUE(events.empty());
}

TEST_F(SnapControllerTest, RememberKeepsTheFirstFrame) {
  controller.remember({.id = 4, .frame = somewhere});
  controller.remember({.id = 4, .frame = leftHalf});
  EXPECT_EQ(controller.originalFrame(4), somewhere);
}

TEST_F(SnapControllerTest, ForgetDeletesAnEntryIfThereIsOne) {
  controller.remember({.id = 4, .frame = somewhere});
  controller.forget(4);
  controller.forget(4);
  EXPECT_EQ(controller.originalFrame(4), std::nullopt);
}

}  // namespace
}  // namespace tilwin
