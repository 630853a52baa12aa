#include <gtest/gtest.h>

#include <memory>
#include <optional>

#include "tests/desktop/afternoon/Afternoon.h"
#include "tests/desktop/harness/RealApplication.h"

namespace tilwin::desktop {

namespace {

/// The rows of the submenu of layouts that are always there follow those of the layouts themselves.
MenuPath saveArrangement(int layouts) { return {row::layouts, layouts + 1}; }
MenuPath describeLayout(int layouts) { return {row::layouts, layouts + 2}; }
const MenuPath saveWindowAsArea{row::customAreas, -1};
const MenuPath ignoreInFront{row::settings - 1};

constexpr const char* recordsDrags = "Record drag statistics on this computer";
constexpr const char* shortcutButton = "Shortcut for Reading";
constexpr const char* areaKeys = "Control+Alt+r";
/// A drag is recorded once it is known whether it was undone.
constexpr Milliseconds recordTimeout{12000};

/// One afternoon of a person with two programs. Each test goes on where the one before it ended.
class AnAfternoon : public testing::Test {
protected:
  static void SetUpTestSuite() {
    day_ = std::make_unique<Afternoon>();
    terminal_.emplace(Application::xterm, day_->session().home(), day_->session().environment(), desktop());
    editor_.emplace(Application::qt, day_->session().home(), day_->session().environment(), desktop());
    day_->startTilwin();
  }
  static void TearDownTestSuite() {
    terminal_.reset();
    editor_.reset();
    day_.reset();
  }
  void SetUp() override { ASSERT_TRUE(day_ && terminal_ && editor_) << "the afternoon did not begin"; }

  static Afternoon& day() { return *day_; }
  static Desktop& desktop() { return day_->desktop(); }
  static WindowId terminal() { return terminal_->window(); }
  static WindowId editor() { return editor_->window(); }
  static Names savedNames() { return savedLayouts(day().session().home()).value_or(SavedLayouts()).names; }
  static SavedSettings settings() { return savedSettings(day().session().home()).value_or(SavedSettings()); }

  /// Whether these come to be the saved layouts.
  static testing::AssertionResult areSaved(const Names& names) {
    if (desktop().waitUntil([&] { return savedNames() == names; })) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "saved are " << testing::PrintToString(savedNames());
  }

  static testing::AssertionResult shortcutButtonSays(const std::string& words) {
    std::string said;
    const auto says = [&] {
      return (said = day().reader().find("push button", shortcutButton).description) == words;
    };
    if (desktop().waitUntil(says)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "it says “" << said << "”";
  }

  static void press(WindowId window, const char* keys) {
    ASSERT_TRUE(desktop().activate(window));
    day().input().press(keys);
  }
  /// The frame with these shares of the screen without the panel.
  static Rect share(double x, double y, double width, double height) {
    const Rect room = day().room();
    return {room.x + x * room.width, room.y + y * room.height, width * room.width, height * room.height};
  }
  /// Puts both windows where no layout of these tests has them.
  static void scatter() {
    day().placeByHand(terminal(), {70, 60, 500, 300});
    day().placeByHand(editor(), {700, 500, 640, 420});
  }

  static std::unique_ptr<Afternoon> day_;
  static std::optional<RealApplication> terminal_;
  static std::optional<RealApplication> editor_;
};

std::unique_ptr<Afternoon> AnAfternoon::day_;
std::optional<RealApplication> AnAfternoon::terminal_;
std::optional<RealApplication> AnAfternoon::editor_;

}  // namespace

TEST_F(AnAfternoon, AnArrangementIsSavedUnderAName) {
  day().placeByHand(terminal(), {120, 90, 640, 480});
  day().placeByHand(editor(), {900, 200, 700, 650});
  day().answer(saveArrangement(0), "Writing");
  EXPECT_TRUE(areSaved({"Writing"}));
}

TEST_F(AnAfternoon, ADescribedLayoutIsPlacedAndNotSaved) {
  scatter();
  day().answer(describeLayout(1), "xterm left two thirds, featherpad right third");
  EXPECT_TRUE(day().stands(terminal(), share(0, 0, 2.0 / 3, 1)));
  EXPECT_TRUE(day().stands(editor(), share(2.0 / 3, 0, 1.0 / 3, 1)));
  EXPECT_TRUE(areSaved({"Writing"}));
}

TEST_F(AnAfternoon, AnAppliedArrangementBringsItsWindowsBack) {
  day().icon().choose({row::layouts, 1});
  EXPECT_TRUE(day().stands(terminal(), {120, 90, 640, 480}));
  EXPECT_TRUE(day().stands(editor(), {900, 200, 700, 650}));
}

TEST_F(AnAfternoon, ADeletedArrangementIsGoneAndAnotherStays) {
  day().answer(saveArrangement(1), "Evening");
  ASSERT_TRUE(areSaved({"Writing", "Evening"}));
  // The menu has them in the order of their names.
  day().icon().choose({row::layouts, -1, 2});
  EXPECT_TRUE(areSaved({"Evening"}));
}

TEST_F(AnAfternoon, AWindowSavedAsAnAreaGetsAShortcutThatSnapsAnotherWindowToIt) {
  const Rect reading = share(0.25, 0.125, 0.5, 0.75);
  day().placeByHand(editor(), reading);
  ASSERT_TRUE(desktop().activate(editor()));
  day().answer(saveWindowAsArea, "Reading");
  EXPECT_TRUE(desktop().waitUntil([] { return settings().areas == Names{"Reading"}; }));

  day().openSettings("Custom areas");
  day().click("push button", shortcutButton);
  // A window manager may hold the click back, but not the keys.
  EXPECT_TRUE(shortcutButtonSays("Press keys…"));
  day().input().press(areaKeys);
  EXPECT_TRUE(shortcutButtonSays("Ctrl+Alt+R"));
  day().closeSettings();

  press(terminal(), areaKeys);
  EXPECT_TRUE(day().stands(terminal(), reading));
}

TEST_F(AnAfternoon, AnIgnoredApplicationStaysWhereItIs) {
  scatter();
  const auto before = desktop().frame(terminal());
  ASSERT_TRUE(desktop().activate(terminal()));
  day().icon().choose(ignoreInFront);
  ASSERT_TRUE(desktop().waitUntil([] { return settings().ignored.size() == 1; }));
  press(terminal(), leftHalfKeys);
  desktop().settle();  // else the press may only be taken when the editor is in front
  press(editor(), leftHalfKeys);
  EXPECT_TRUE(day().stands(editor(), share(0, 0, 0.5, 1)));
  EXPECT_EQ(desktop().frame(terminal()), before);
}

TEST_F(AnAfternoon, ADragIsRecordedOnceThatIsSwitchedOn) {
  day().openSettings("Drag statistics");
  static_cast<void>(day().reader().find("label", "0 drags recorded so far."));
  day().click("check box", recordsDrags);
  static_cast<void>(day().reader().find("check box", recordsDrags, {"CHECKED"}));
  day().closeSettings();

  day().placeByHand(editor(), {700, 300, 640, 420});
  day().input().takeHold(desktop().titleBar(editor()));
  day().input().comeToRest({0, 540});
  day().input().buttonUp();
  EXPECT_TRUE(day().stands(editor(), share(0, 0, 0.5, 1)));

  const auto log = day().session().home().data() / "Tilwin" / "shadow.jsonl";
  const auto written = [&] { return std::filesystem::exists(log) && std::filesystem::file_size(log) > 0; };
  ASSERT_TRUE(desktop().waitUntil(written, recordTimeout));
  day().openSettings("Drag statistics");
  static_cast<void>(day().reader().find("label", "1 drag recorded so far."));
  day().closeSettings();
}

TEST_F(AnAfternoon, AfterQuittingAndStartingAgainEverythingIsStillThere) {
  day().icon().choose({row::quit});
  ASSERT_EQ(day().tilwinEnds(), endedWell);
  EXPECT_TRUE(day().icon().disappears());
  day().startTilwin();
  EXPECT_NE(day().log().find("30 of 30 shortcuts work"), std::string::npos) << day().log();

  // The area and its shortcut, and that the other program is ignored.
  scatter();
  const auto before = desktop().frame(terminal());
  press(terminal(), areaKeys);
  press(editor(), areaKeys);
  EXPECT_TRUE(day().stands(editor(), share(0.25, 0.125, 0.5, 0.75)));
  EXPECT_EQ(desktop().frame(terminal()), before);

  // Ignored no longer, it takes part in the layout again.
  ASSERT_TRUE(desktop().activate(terminal()));
  day().icon().choose(ignoreInFront);
  ASSERT_TRUE(desktop().waitUntil([] { return settings().ignored.empty(); }));
  day().icon().choose({row::layouts, 1});
  EXPECT_TRUE(day().stands(terminal(), {120, 90, 640, 480}));
  EXPECT_TRUE(day().stands(editor(), {900, 200, 700, 650}));

  day().openSettings("Drag statistics");
  static_cast<void>(day().reader().find("label", "1 drag recorded so far."));
  static_cast<void>(day().reader().find("check box", recordsDrags, {"CHECKED"}));
  day().closeSettings();
}

}  // namespace tilwin::desktop
