#include "platform/macos/windows/MacAccessibility.h"

#include <ApplicationServices/ApplicationServices.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "tests/macos/c/accessibility/AccessiblePrograms.h"
#include "tests/macos/c/objects/Values.h"

namespace tilwin::macos {
namespace {

constexpr std::int32_t editor = 101;

/// A program with one window, seen through the adapter.
struct MacAccessibilityTest : testing::Test {
  using Node = SimulatedAccessibility::Node;

  MacAccessibilityTest() {
    tree.give(tree.applicationNode(editor), "AXMainWindow", tree.reference(window));
    tree.give(tree.applicationNode(editor), "AXWindows", std::vector{tree.reference(window)});
    tree.give(window, "AXTitle", "text");
    tree.cover({0, 0, 100, 100}, window);
  }

  AccessibilityElementRef mainWindow() {
    const auto value = adapter.copyAttribute(adapter.application(editor), "AXMainWindow");
    const auto* element = std::get_if<AccessibilityElementRef>(&value);
    return element == nullptr ? nullptr : *element;
  }
  AccessibilityValue title() { return adapter.copyAttribute(mainWindow(), "AXTitle"); }

  SimulatedAccessibility tree;
  Node window = tree.add(editor);
  c::AccessiblePrograms programs{tree};
  MacAccessibility adapter;
};

constexpr std::array errors{kAXErrorFailure,
                            kAXErrorIllegalArgument,
                            kAXErrorInvalidUIElement,
                            kAXErrorCannotComplete,
                            kAXErrorAttributeUnsupported,
                            kAXErrorNotImplemented,
                            kAXErrorAPIDisabled,
                            kAXErrorNoValue,
                            kAXErrorActionUnsupported,
                            kAXErrorNotEnoughPrecision,
                            kAXErrorNotificationUnsupported,
                            kAXErrorParameterizedAttributeUnsupported};

TEST_F(MacAccessibilityTest, WhicheverErrorAReadingEndsWithItGivesNothing) {
  for (const AXError error : errors) {
    programs.fail(window, "AXTitle", error);
    EXPECT_EQ(title(), AccessibilityValue()) << error;
  }
  programs.fail(window, "AXTitle", kAXErrorSuccess);
  EXPECT_EQ(title(), AccessibilityValue("text"));
}

TEST_F(MacAccessibilityTest, WhicheverErrorAWritingEndsWithItFails) {
  const auto element = mainWindow();
  for (const AXError error : errors) {
    programs.fail(window, "AXTitle", error);
    EXPECT_FALSE(adapter.setAttribute(element, "AXTitle", "new")) << error;
  }
  programs.fail(window, "AXTitle", kAXErrorSuccess);
  EXPECT_TRUE(adapter.setAttribute(element, "AXTitle", "new"));
  EXPECT_EQ(tree.held(window, "AXTitle"), AccessibilityValue("new"));
}

TEST_F(MacAccessibilityTest, AllReferencesToAnElementHaveOneHash) {
  const auto listed = adapter.copyAttribute(adapter.application(editor), "AXWindows");
  const auto first = std::get<std::vector<AccessibilityElementRef>>(listed).at(0);
  EXPECT_NE(first, mainWindow());
  EXPECT_EQ(adapter.hash(first), adapter.hash(mainWindow()));
  EXPECT_EQ(adapter.hash(first), adapter.hash(adapter.element({50, 50})));
  EXPECT_NE(adapter.hash(first), adapter.hash(adapter.application(editor)));
}

TEST_F(MacAccessibilityTest, TheHashOfAWindowStaysWhenItIsGone) {
  const auto element = mainWindow();
  const auto before = adapter.hash(element);
  tree.remove(window);
  EXPECT_EQ(adapter.hash(element), before);
}

TEST_F(MacAccessibilityTest, OfAWindowThatIsGoneNothingIsReadOrWrittenButItsProcessIsKnown) {
  const auto element = mainWindow();
  tree.remove(window);
  EXPECT_EQ(adapter.copyAttribute(element, "AXTitle"), AccessibilityValue());
  EXPECT_FALSE(adapter.setAttribute(element, "AXTitle", "new"));
  EXPECT_EQ(adapter.owningProcess(element), editor);
}

TEST_F(MacAccessibilityTest, AWindowMayVanishWhileItsProgramIsAsked) {
  const auto element = mainWindow();
  programs.onQuestion = [this](Node asked) {
    if (asked == window && tree.has(window)) tree.remove(window);
  };
  EXPECT_EQ(adapter.copyAttribute(element, "AXTitle"), AccessibilityValue());
  EXPECT_FALSE(adapter.setAttribute(element, "AXTitle", "new"));
}

TEST_F(MacAccessibilityTest, TheElementOfAProgramThatDoesNotRunIsThereButMute) {
  const auto nobody = adapter.application(999);
  ASSERT_TRUE(nobody);
  EXPECT_EQ(adapter.copyAttribute(nobody, "AXWindows"), AccessibilityValue());
  EXPECT_FALSE(adapter.setAttribute(nobody, "AXEnhancedUserInterface", false));
  EXPECT_EQ(adapter.owningProcess(nobody), 999);
}

TEST_F(MacAccessibilityTest, WhereThereIsNothingThereIsNoElement) {
  EXPECT_FALSE(adapter.element({500, 500}));
}

TEST_F(MacAccessibilityTest, ALieIsReadAsWhatItIs) {
  programs.lie(window, "AXTitle", AXUIElementCreateApplication(editor));
  EXPECT_TRUE(std::holds_alternative<AccessibilityElementRef>(title()));
  programs.lie(window, "AXTitle", c::objects().make<c::NumberObject>(1));
  EXPECT_EQ(title(), AccessibilityValue());
  const Node application = tree.applicationNode(editor);
  programs.lie(application, "AXMainWindow", c::makeString("AXWindow"));
  EXPECT_FALSE(mainWindow());
  programs.lie(application, "AXMainWindow",
               CFArrayCreate(kCFAllocatorDefault, nullptr, 0, &kCFTypeArrayCallBacks));
  EXPECT_FALSE(mainWindow());
}

TEST_F(MacAccessibilityTest, AnAttributeWhoseNameIsNoTextIsMissing) {
  EXPECT_EQ(adapter.copyAttribute(mainWindow(), "\xff"), AccessibilityValue());
  EXPECT_FALSE(adapter.setAttribute(mainWindow(), "\xff", true));
}

TEST_F(MacAccessibilityTest, AnElementOfAnotherAdapterOrNoneIsMute) {
  for (const AccessibilityElementRef& other : {tree.reference(window), AccessibilityElementRef()}) {
    EXPECT_EQ(adapter.copyAttribute(other, "AXTitle"), AccessibilityValue());
    EXPECT_FALSE(adapter.setAttribute(other, "AXTitle", "new"));
    EXPECT_EQ(adapter.owningProcess(other), std::nullopt);
    EXPECT_EQ(adapter.hash(other), 0U);
  }
}

TEST_F(MacAccessibilityTest, WithoutPermissionNothingIsReadOrWritten) {
  const auto element = mainWindow();
  tree.isTrusted = false;
  EXPECT_EQ(adapter.copyAttribute(element, "AXTitle"), AccessibilityValue());
  EXPECT_FALSE(adapter.setAttribute(element, "AXTitle", "new"));
  EXPECT_FALSE(adapter.element({50, 50}));
  EXPECT_TRUE(adapter.application(editor));
}

}  // namespace
}  // namespace tilwin::macos
