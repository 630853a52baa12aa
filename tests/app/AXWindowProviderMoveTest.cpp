#include <limits>
#include <variant>

#include "tests/app/AXWindowProviderFixture.h"

namespace tilwin {
namespace {

constexpr Rect moveTarget{720, 25, 360, 805};
using Writes = std::vector<std::string>;

/// "AXSize 360,805", with a "!" before what was refused.
std::string writeInWords(const SimulatedAccessibility::Write& write) {
  std::string words = (write.wasTaken ? "" : "!") + write.attribute + " ";
  const auto pair = [](double first, double second) {
    return std::to_string(static_cast<int>(first)) + "," + std::to_string(static_cast<int>(second));
  };
  if (const auto* flag = std::get_if<bool>(&write.value)) words += *flag ? "true" : "false";
  if (const auto* point = std::get_if<Point>(&write.value)) words += pair(point->x, point->y);
  if (const auto* size = std::get_if<Size>(&write.value)) words += pair(size->width, size->height);
  return words;
}

struct AXWindowProviderMove : AXWindowProviderTest {
  Writes writes() {
    Writes words;
    for (const auto& write : tree.writes()) words.push_back(writeInWords(write));
    return words;
  }
  void enhance(std::int32_t processID) {
    tree.give(applicationNode(processID), "AXEnhancedUserInterface", true);
  }

  std::int64_t id = openFocused({.title = "text", .frame = {10, 20, 300, 200}});
};

TEST_F(AXWindowProviderMove, APositionASizeAndThePositionAgainAreWritten) {
  EXPECT_TRUE(provider.setFrame(id, moveTarget));
  EXPECT_EQ(writes(), (Writes{"AXPosition 720,25", "AXSize 360,805", "AXPosition 720,25"}));
  for (const auto& write : tree.writes()) EXPECT_EQ(write.node, opened);
  EXPECT_EQ(desktop.standing(opened), moveTarget);
}

TEST_F(AXWindowProviderMove, AFrameIsWrittenAsItIsFractionsIncluded) {
  const Rect uneven{-0.5, 1.25, 99.75, 0};
  EXPECT_TRUE(provider.setFrame(id, uneven));
  EXPECT_EQ(desktop.standing(opened), uneven);
}

TEST_F(AXWindowProviderMove, ARefusedWriteFailsTheMoveButNotTheWritesAfterIt) {
  const std::vector<Writes> expected{{"!AXPosition 720,25", "AXSize 360,805", "AXPosition 720,25"},
                                     {"AXPosition 720,25", "!AXSize 360,805", "AXPosition 720,25"},
                                     {"AXPosition 720,25", "AXSize 360,805", "!AXPosition 720,25"}};
  for (int which = 1; which <= 3; ++which) {
    tree.forgetWrites();
    tree.refuseOnce(opened, which);
    EXPECT_FALSE(provider.setFrame(id, moveTarget)) << which;
    EXPECT_EQ(writes(), expected[static_cast<std::size_t>(which - 1)]);
  }
  EXPECT_TRUE(provider.setFrame(id, moveTarget));
}

TEST_F(AXWindowProviderMove, AWindowOfFixedSizeIsMovedAllTheSame) {
  tree.refuse(opened, "AXSize");
  EXPECT_FALSE(provider.setFrame(id, moveTarget));
  EXPECT_EQ(desktop.standing(opened), (Rect{720, 25, 300, 200}));
}

TEST_F(AXWindowProviderMove, AProgramThatRefusesEverythingFailsTheMove) {
  tree.refuseAll(opened);
  EXPECT_FALSE(provider.setFrame(id, moveTarget));
  EXPECT_EQ(desktop.standing(opened), (Rect{10, 20, 300, 200}));
}

TEST_F(AXWindowProviderMove, TheEnhancedInterfaceIsOffWhileAWindowMoves) {
  enhance(editor);
  EXPECT_TRUE(provider.setFrame(id, moveTarget));
  ASSERT_EQ(writes(), (Writes{"AXEnhancedUserInterface false", "AXPosition 720,25", "AXSize 360,805",
                              "AXPosition 720,25", "AXEnhancedUserInterface true"}));
  EXPECT_EQ(tree.writes().front().node, applicationNode(editor));
  EXPECT_EQ(tree.writes().back().node, applicationNode(editor));
}

TEST_F(AXWindowProviderMove, TheEnhancedInterfaceIsBackOnAfterAMoveThatFailed) {
  enhance(editor);
  tree.refuseAll(opened);
  EXPECT_FALSE(provider.setFrame(id, moveTarget));
  EXPECT_EQ(writes(), (Writes{"AXEnhancedUserInterface false", "!AXPosition 720,25", "!AXSize 360,805",
                              "!AXPosition 720,25", "AXEnhancedUserInterface true"}));
}

TEST_F(AXWindowProviderMove, AnEnhancedInterfaceThatCannotBeSwitchedDoesNotFailTheMove) {
  enhance(editor);
  tree.refuseAll(applicationNode(editor));
  EXPECT_TRUE(provider.setFrame(id, moveTarget));
  EXPECT_EQ(desktop.standing(opened), moveTarget);
}

TEST_F(AXWindowProviderMove, AnEnhancedInterfaceThatIsOffOrNoFlagIsLeftAlone) {
  const Writes moveAlone{"AXPosition 720,25", "AXSize 360,805", "AXPosition 720,25"};
  for (const AccessibilityValue& value : {AccessibilityValue(false), AccessibilityValue("true")}) {
    tree.forgetWrites();
    tree.give(applicationNode(editor), "AXEnhancedUserInterface", value);
    EXPECT_TRUE(provider.setFrame(id, moveTarget));
    EXPECT_EQ(writes(), moveAlone);
  }
}

TEST_F(AXWindowProviderMove, OnlyTheWindowsOwnProgramIsAskedForTheEnhancedInterface) {
  const auto reader = launch("Reader");
  enhance(reader);
  desktop.activate(reader);
  EXPECT_TRUE(provider.setFrame(id, moveTarget));
  EXPECT_EQ(writes().size(), 3);
}

TEST_F(AXWindowProviderMove, AWindowWhoseProgramIsUnknownIsMovedAllTheSame) {
  enhance(editor);
  tree.forgetProcess(opened);
  EXPECT_TRUE(provider.setFrame(id, moveTarget));
  EXPECT_EQ(writes().size(), 3);
}

TEST_F(AXWindowProviderMove, AWindowThatClosesDuringTheMoveFailsItAndTheEnhancedInterfaceIsBackOn) {
  enhance(editor);
  tree.onWrite = [this](const SimulatedAccessibility::Write& write) {
    if (write.attribute == "AXSize") desktop.close(opened);
  };
  EXPECT_FALSE(provider.setFrame(id, moveTarget));
  EXPECT_EQ(writes(), (Writes{"AXEnhancedUserInterface false", "AXPosition 720,25", "AXSize 360,805",
                              "!AXPosition 720,25", "AXEnhancedUserInterface true"}));
}

TEST_F(AXWindowProviderMove, AWindowThatIsPushedAwayWhileItGrowsStandsWhereItWasAskedTo) {
  tree.onWrite = [this](const SimulatedAccessibility::Write& write) {
    if (write.attribute == "AXSize") tree.give(opened, "AXPosition", Point{600, 0});
  };
  EXPECT_TRUE(provider.setFrame(id, moveTarget));
  EXPECT_EQ(desktop.standing(opened), moveTarget);
}

TEST_F(AXWindowProviderMove, AFrameThatNoDesktopHoldsIsRefusedBeforeAnythingIsWritten) {
  constexpr double nowhere = std::numeric_limits<double>::quiet_NaN();
  enhance(editor);
  for (const Rect& frame : {Rect{nowhere, 0, 1, 1}, Rect{0, 0, 1, nowhere}, Rect{-32768, 0, 1, 1},
                            Rect{32000, 0, 768, 1}, Rect{0, 0, 1, 1e300}}) {
    EXPECT_FALSE(provider.setFrame(id, frame));
  }
  EXPECT_TRUE(tree.writes().empty());
  EXPECT_TRUE(provider.setFrame(id, {32000, -32767, 767, 1}));
}

TEST_F(AXWindowProviderMove, WithoutPermissionNoWindowIsMoved) {
  enhance(editor);
  tree.isTrusted = false;
  EXPECT_FALSE(provider.setFrame(id, moveTarget));
  EXPECT_FALSE(provider.frame(id));
  tree.isTrusted = true;
  EXPECT_EQ(provider.frame(id), (Rect{10, 20, 300, 200}));
}

}  // namespace
}  // namespace tilwin
