#include <gtest/gtest.h>

#include "app/windows/AXWindowProvider.h"
#include "platform/macos/windows/MacAccessibility.h"
#include "platform/simulated/SimulatedAccessibleDesktop.h"
#include "tests/macos/c/accessibility/AccessiblePrograms.h"

/// How long a program that is slow or hangs holds up this one.

namespace tilwin::macos {
namespace {

using Seconds = c::AccessiblePrograms::Seconds;

constexpr Seconds wait{MacAccessibility::longestWait};

struct HungProgram : testing::Test {
  HungProgram() { desktop.focus(desktop.open(hung, {.title = "hung", .frame = {0, 0, 100, 100}})); }

  std::int32_t launch(const std::string& name) {
    return desktop.launch({.bundleIdentifier = "org.example." + name, .localizedName = name});
  }
  /// What an operation waits.
  template <typename Operation>
  Seconds waitOf(Operation operation) {
    programs.forgetWaiting();
    operation();
    return programs.waited();
  }

  SimulatedAccessibleDesktop desktop;
  std::int32_t hung = launch("Hung");
  c::AccessiblePrograms programs{desktop.tree};
  MacAccessibility adapter;
  AXWindowProvider provider{adapter, desktop.workspace, desktop.screens};
};

TEST_F(HungProgram, AProgramThatAnswersInTimeIsWaitedFor) {
  programs.slowDown(hung, Seconds{0.25});
  EXPECT_EQ(provider.focusedWindow().value().title, "hung");
}

TEST_F(HungProgram, AProgramThatDoesNotAnswerInTimeIsGivenUp) {
  programs.slowDown(hung, Seconds{0.75});
  EXPECT_EQ(adapter.copyAttribute(adapter.application(hung), "AXFocusedWindow"), AccessibilityValue());
  EXPECT_EQ(programs.waited(), wait);
}

TEST_F(HungProgram, ItsFocusedWindowIsSoughtForTwoWaits) {
  programs.hang(hung);
  EXPECT_EQ(waitOf([&] { EXPECT_FALSE(provider.focusedWindow()); }), 2 * wait);
}

TEST_F(HungProgram, AListOfAllWindowsLeavesItOutAfterOneWait) {
  desktop.open(launch("Editor"), {.title = "text"});
  programs.hang(hung);
  EXPECT_EQ(waitOf([&] {
              const auto windows = provider.allWindows();
              ASSERT_EQ(windows.size(), 1U);
              EXPECT_EQ(windows[0].title, "text");
            }),
            wait);
}

TEST_F(HungProgram, AMoveOfAWindowWhoseProgramHangsMeanwhileEndsAfterFourWaits) {
  const auto id = provider.focusedWindow().value().id;
  programs.hang(hung);
  EXPECT_EQ(waitOf([&] { EXPECT_FALSE(provider.setFrame(id, {0, 0, 500, 500})); }), 4 * wait);
}

TEST_F(HungProgram, AMoveEndsAfterFiveWaitsAtMost) {
  desktop.tree.give(desktop.tree.applicationNode(hung), "AXEnhancedUserInterface", true);
  const auto id = provider.focusedWindow().value().id;
  int questions = 0;
  programs.onQuestion = [&](auto) {
    if (++questions == 2) programs.hang(hung);
  };
  EXPECT_EQ(waitOf([&] { EXPECT_FALSE(provider.setFrame(id, {0, 0, 500, 500})); }), 5 * wait);
}

TEST_F(HungProgram, ItsFrameIsSoughtForTwoWaitsAndAWindowUnderThePointerForOne) {
  const auto id = provider.focusedWindow().value().id;
  programs.hang(hung);
  EXPECT_EQ(waitOf([&] { EXPECT_FALSE(provider.frame(id)); }), 2 * wait);
  EXPECT_EQ(waitOf([&] { EXPECT_FALSE(provider.window({50, 50})); }), wait);
}

TEST_F(HungProgram, OtherProgramsAnswerAsEver) {
  const auto editor = launch("Editor");
  desktop.focus(desktop.open(editor, {.title = "text", .frame = {200, 0, 100, 100}}));
  programs.hang(hung);
  EXPECT_EQ(waitOf([&] {
              EXPECT_EQ(provider.focusedWindow().value().title, "text");
              EXPECT_EQ(provider.window({250, 50}).value().title, "text");
            }),
            Seconds{0});
}

TEST_F(HungProgram, TheLimitHoldsWhenPermissionIsGivenOnlyAfterTheStart) {
  desktop.tree.isTrusted = false;
  EXPECT_FALSE(provider.focusedWindow());
  desktop.tree.isTrusted = true;
  programs.hang(hung);
  EXPECT_EQ(waitOf([&] { EXPECT_FALSE(provider.focusedWindow()); }), 2 * wait);
}

TEST_F(HungProgram, WithoutALimitTheSystemWouldWaitTwelveTimesAsLong) {
  EXPECT_EQ(programs.timeoutOfAll, c::AccessiblePrograms::defaultTimeout);
  (void)adapter.application(hung);
  EXPECT_EQ(programs.timeoutOfAll, c::AccessiblePrograms::defaultTimeout / 12);
}

}  // namespace
}  // namespace tilwin::macos
