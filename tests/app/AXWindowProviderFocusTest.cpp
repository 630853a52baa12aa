#include "tests/app/AXWindowProviderFixture.h"

namespace tilwin {
namespace {

TEST_F(AXWindowProviderTest, TheFocusedWindowIsDescribedInFull) {
  opened = desktop.open(editor, {.title = "Größe", .frame = {10, 20, 300, 200}});
  tree.setHash(opened, 77);
  const WindowInfo expected{.id = 77,
                            .bundleID = "org.example.Editor",
                            .appName = "Editor",
                            .title = "Größe",
                            .frame = {10, 20, 300, 200},
                            .isMinimized = false,
                            .zOrder = 0};
  EXPECT_EQ(provider.focusedWindow(), expected);
}

TEST_F(AXWindowProviderTest, WithNothingInFrontNoWindowHasTheFocus) {
  desktop.open(editor);
  desktop.workspace.frontmost.reset();
  EXPECT_FALSE(provider.focusedWindow());
}

TEST_F(AXWindowProviderTest, WithThisProgramInFrontNoWindowHasTheFocus) {
  desktop.open(editor);
  desktop.workspace.own = "org.example.Editor";
  EXPECT_FALSE(provider.focusedWindow());
}

TEST_F(AXWindowProviderTest, TwoProgramsWithoutABundleCountAsThisOne) {
  const auto script = desktop.launch({.localizedName = "script"});
  desktop.focus(desktop.open(script));
  EXPECT_TRUE(provider.focusedWindow());
  desktop.workspace.own.reset();
  EXPECT_FALSE(provider.focusedWindow());
  desktop.focus(desktop.open(editor));
  EXPECT_TRUE(provider.focusedWindow());
}

TEST_F(AXWindowProviderTest, AnEmptyBundleIdentifierIsNotAMissingOne) {
  desktop.workspace.own = "";
  desktop.focus(desktop.open(desktop.launch({.localizedName = "script"})));
  EXPECT_TRUE(provider.focusedWindow());
}

TEST_F(AXWindowProviderTest, AProgramWithoutANameOrABundleHasEmptyOnes) {
  desktop.focus(desktop.open(desktop.launch({})));
  const auto window = provider.focusedWindow();
  ASSERT_TRUE(window);
  EXPECT_EQ(window->bundleID, "");
  EXPECT_EQ(window->appName, "");
}

TEST_F(AXWindowProviderTest, TheFocusedWindowGoesBeforeTheMainOne) {
  const Node document = desktop.open(editor, {.title = "document"});
  desktop.open(editor, {.title = "palette"});
  tree.give(applicationNode(editor), "AXMainWindow", tree.reference(document));
  EXPECT_EQ(provider.focusedWindow().value().title, "palette");
}

TEST_F(AXWindowProviderTest, WithoutAFocusedWindowTheMainOneIsTaken) {
  const Node document = desktop.open(editor, {.title = "document"});
  desktop.open(editor, {.title = "palette"});
  tree.give(applicationNode(editor), "AXMainWindow", tree.reference(document));
  tree.take(applicationNode(editor), "AXFocusedWindow");
  EXPECT_EQ(provider.focusedWindow().value().title, "document");
}

TEST_F(AXWindowProviderTest, AFocusedWindowThatIsNoElementCountsAsMissing) {
  desktop.open(editor, {.title = "document"});
  tree.give(applicationNode(editor), "AXFocusedWindow", "document");
  EXPECT_EQ(provider.focusedWindow().value().title, "document");
  tree.give(applicationNode(editor), "AXMainWindow", true);
  EXPECT_FALSE(provider.focusedWindow());
}

TEST_F(AXWindowProviderTest, AProgramWithoutAFocusedAndAMainWindowHasNone) {
  EXPECT_FALSE(provider.focusedWindow());
}

TEST_F(AXWindowProviderTest, TheMainWindowIsNotTakenForAFocusedOneThatCannotBeRead) {
  const Node document = desktop.open(editor, {.title = "document"});
  tree.take(desktop.open(editor, {.title = "palette"}), "AXPosition");
  tree.give(applicationNode(editor), "AXMainWindow", tree.reference(document));
  EXPECT_FALSE(provider.focusedWindow());
}

TEST_F(AXWindowProviderTest, AWindowOfAnySubroleCanHaveTheFocus) {
  desktop.open(editor, {.title = "Save changes?", .subrole = "AXDialog"});
  EXPECT_EQ(provider.focusedWindow().value().title, "Save changes?");
}

TEST_F(AXWindowProviderTest, AWindowWithoutAPositionOrASizeIsNone) {
  for (const char* name : {"AXPosition", "AXSize"}) {
    opened = desktop.open(editor);
    ASSERT_TRUE(provider.focusedWindow());
    tree.take(opened, name);
    EXPECT_FALSE(provider.focusedWindow()) << name;
  }
}

TEST_F(AXWindowProviderTest, APositionThatIsNoPointOrASizeThatIsNoSizeCountsAsMissing) {
  opened = desktop.open(editor);
  tree.give(opened, "AXPosition", Size{10, 20});
  EXPECT_FALSE(provider.focusedWindow());
  opened = desktop.open(editor);
  tree.give(opened, "AXSize", Point{10, 20});
  EXPECT_FALSE(provider.focusedWindow());
}

TEST_F(AXWindowProviderTest, ATitleOrAMinimizedStateThatIsMissingOrOfAnotherKindIsEmptyOrFalse) {
  opened = desktop.open(editor, {.title = "text", .isMinimized = true});
  tree.give(applicationNode(editor), "AXFocusedWindow", tree.reference(opened));
  EXPECT_TRUE(provider.focusedWindow().value().isMinimized);
  tree.give(opened, "AXTitle", true);
  tree.give(opened, "AXMinimized", "true");
  EXPECT_EQ(provider.focusedWindow().value().title, "");
  EXPECT_FALSE(provider.focusedWindow().value().isMinimized);
  tree.take(opened, "AXTitle");
  tree.take(opened, "AXMinimized");
  EXPECT_EQ(provider.focusedWindow().value().title, "");
  EXPECT_FALSE(provider.focusedWindow().value().isMinimized);
}

TEST_F(AXWindowProviderTest, WithoutPermissionNoWindowHasTheFocus) {
  desktop.open(editor);
  tree.isTrusted = false;
  EXPECT_FALSE(provider.focusedWindow());
}

TEST_F(AXWindowProviderTest, TheLargestPositiveHashIsAnId) {
  tree.setHash(desktop.open(editor), 0x7fffffffffffffff);
  EXPECT_EQ(provider.focusedWindow().value().id, 0x7fffffffffffffff);
}

using AXWindowProviderDeathTest = AXWindowProviderTest;

TEST_F(AXWindowProviderDeathTest, ANegativeHashEndsTheProgram) {
  tree.setHash(desktop.open(editor), 0x8000000000000000);
  EXPECT_DEATH((void)provider.focusedWindow(), "^Tilwin: The hash of a window's element is negative\\.\n$");
  EXPECT_DEATH((void)provider.allWindows(), "^Tilwin: The hash of a window's element is negative\\.\n$");
}

TEST_F(AXWindowProviderTest, TheHashOfAWindowThatCannotBeReadDoesNotMatter) {
  opened = desktop.open(editor);
  tree.setHash(opened, 0x8000000000000000);
  tree.take(opened, "AXSize");
  EXPECT_FALSE(provider.focusedWindow());
}

}  // namespace
}  // namespace tilwin
