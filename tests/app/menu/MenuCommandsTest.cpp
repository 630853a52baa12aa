#include "tests/app/RunningProgram.h"

namespace tilwin {
namespace {

constexpr Rect untouched{100, 100, 800, 600};

/// A user at the status menu of the running program, with an editor in front of a terminal.
struct MenuCommandsTest : RunningProgram {
  void startWithAreas(int count) {
    TilwinSettings settings;
    for (int number = 0; number < count; ++number) {
      settings.customAreas.push_back(CustomArea::starter("Area"));
    }
    startWith(settings);
  }
  Rect editorFrame() { return desktop.windows.find(editor)->frame; }
  [[nodiscard]] const std::vector<DialogText>& alerts() const { return desktop.dialogs.alerts(); }

  const DialogText tooManyAreas{"Too many areas",
                                "Tilwin keeps up to 12 custom areas. Delete one in Settings first."};
  SimulatedWindows::Handle terminal =
      desktop.windows.open({.bundleID = "org.example.Terminal", .appName = "Terminal", .frame = untouched});
  SimulatedWindows::Handle editor = desktop.windows.open({.frame = untouched});
};

TEST_F(MenuCommandsTest, AnActionIsPerformedOnTheFocusedWindow) {
  start();
  EXPECT_TRUE(choose({"Halves", "Left half"}));
  EXPECT_EQ(editorFrame(), (Rect{0, 0, 720, 900}));
}

TEST_F(MenuCommandsTest, AMaximizedWindowIsMaximizedAgainByRestore) {
  start();
  desktop.windows.maximize(editor);
  EXPECT_TRUE(choose({"Halves", "Left half"}));
  EXPECT_FALSE(desktop.windows.find(editor)->isMaximized);
  EXPECT_TRUE(choose({"Size and display", "Restore previous size"}));
  EXPECT_TRUE(desktop.windows.find(editor)->isMaximized);
}

TEST_F(MenuCommandsTest, AnActionIsPerformedOnTheWindowThatHadTheFocusBeforeAPanelTookIt) {
  start();
  desktop.windows.unfocus();
  EXPECT_TRUE(choose({"Halves", "Right half"}));
  EXPECT_EQ(editorFrame(), (Rect{720, 0, 720, 900}));
}

TEST_F(MenuCommandsTest, AHotKeyWithoutAFocusedWindowStillMovesNothing) {
  start();
  desktop.windows.unfocus();
  EXPECT_TRUE(choose({"Halves", "Right half"}));
  desktop.windows.moveByHand(editor, untouched);
  desktop.keyboard.press({123, HotKeySpec::control | HotKeySpec::option});
  desktop.time.runDue();
  EXPECT_EQ(editorFrame(), untouched);
}

TEST_F(MenuCommandsTest, AnAreaIsReachedFromTheMenu) {
  TilwinSettings settings;
  settings.customAreas = {CustomArea::starter("Column")};
  startWith(settings);
  EXPECT_TRUE(choose({"Custom areas", "Column"}));
  EXPECT_EQ(editorFrame(), (Rect{288, 0, 864, 900}));
}

TEST_F(MenuCommandsTest, AnApplicationIsIgnoredAndNoLongerIgnored) {
  start();
  EXPECT_TRUE(choose({"Never move windows of Editor"}));
  EXPECT_EQ(settings().ignoredApps, std::vector<std::string>{"org.example.Editor"});
  EXPECT_TRUE(choose({"Halves", "Left half"}));
  EXPECT_EQ(editorFrame(), untouched);
  EXPECT_TRUE(choose({"Never move windows of Editor"}));
  EXPECT_TRUE(settings().ignoredApps.empty());
}

TEST_F(MenuCommandsTest, AHundredApplicationsAreIgnoredAndNoMore) {
  TilwinSettings full;
  for (int number = 1; number < 100; ++number)
    full.ignoredApps.push_back("org.example." + std::to_string(number));
  startWith(full);
  EXPECT_TRUE(choose({"Never move windows of Editor"}));
  EXPECT_EQ(settings().ignoredApps.size(), 100);
  desktop.windows.close(editor);
  EXPECT_TRUE(choose({"Never move windows of Terminal"}));
  EXPECT_EQ(settings().ignoredApps.size(), 100);
  EXPECT_EQ(alerts(),
            (std::vector<DialogText>{
                {"Too many applications",
                 "Tilwin leaves up to 100 applications alone. Let it move the windows of one of them "
                 "first."}}));
}

TEST_F(MenuCommandsTest, AllowingAccessibilityAsksTheDesktop) {
  desktop.user.setTrusted(false);
  start();
  const int before = desktop.user.askCount();
  EXPECT_TRUE(choose({"Allow Accessibility…"}));
  EXPECT_EQ(desktop.user.askCount(), before + 1);
}

TEST_F(MenuCommandsTest, SettingsOpenTheSettingsWindow) {
  start();
  EXPECT_TRUE(choose({"Settings…"}));
  EXPECT_TRUE(desktop.settingsWindow.isOpen());
}

TEST_F(MenuCommandsTest, QuitEndsTheProgramWithSuccess) {
  start();
  desktop.mainQueue().post([this] { EXPECT_TRUE(desktop.icon.choose({"Quit Tilwin"})); });
  EXPECT_EQ(desktop.mainQueue().run(), 0);
}

TEST_F(MenuCommandsTest, UpdatesAreCheckedByTheUpdater) {
  desktop.bundle.built = {{"SUFeedURL", "https://example.org/feed.xml"}};
  start();
  desktop.updates.setCanCheck(true);
  EXPECT_TRUE(choose({"Check for Updates…"}));
  EXPECT_EQ(desktop.updates.state()->checks, 1);
}

TEST_F(MenuCommandsTest, AWindowBecomesAnAreaThatKeepsItsPlaceAsAFraction) {
  start();
  desktop.windows.moveByHand(editor, {360, 90, 720, 450});
  desktop.dialogs.answer("Reading column");
  EXPECT_TRUE(choose({"Custom areas", "Save this window as an area…"}));
  ASSERT_EQ(settings().customAreas.size(), 1);
  EXPECT_EQ(settings().customAreas[0].name, "Reading column");
  EXPECT_EQ(settings().customAreas[0].rect, (NormalizedRect{0.25, 0.1, 0.5, 0.5}));
  EXPECT_EQ(desktop.dialogs.prompts(),
            (std::vector<SimulatedDialogs::Prompt>{
                {{"Save this window as an area",
                  "Name it, for example “Reading column”. Place the window first; Tilwin saves its size and "
                  "position as a fraction of the screen."},
                 ""}}));
  EXPECT_EQ(desktop.dialogs.activations(), 1);
}

TEST_F(MenuCommandsTest, TheAreaIsOfTheWindowThatHadTheFocusBeforeThePromptTookIt) {
  start();
  desktop.windows.moveByHand(editor, {0, 0, 720, 900});
  desktop.dialogs.whileOpen = [this] {
    desktop.windows.open({.frame = {500, 500, 400, 200}, .isStandard = false, .isOfThisProgram = true});
  };
  desktop.dialogs.answer("Left");
  EXPECT_TRUE(choose({"Custom areas", "Save this window as an area…"}));
  ASSERT_EQ(settings().customAreas.size(), 1);
  EXPECT_EQ(settings().customAreas[0].rect, (NormalizedRect{0, 0, 0.5, 1}));
}

TEST_F(MenuCommandsTest, AnAreaWithoutANameIsNotSaved) {
  start();
  desktop.dialogs.answer("");
  EXPECT_TRUE(choose({"Custom areas", "Save this window as an area…"}));
  EXPECT_TRUE(choose({"Custom areas", "Save this window as an area…"}));
  EXPECT_EQ(desktop.dialogs.prompts().size(), 2);
  EXPECT_TRUE(settings().customAreas.empty());
  EXPECT_TRUE(alerts().empty());
}

TEST_F(MenuCommandsTest, WithTwelveAreasNoOtherIsSaved) {
  startWithAreas(12);
  EXPECT_TRUE(choose({"Custom areas", "Save this window as an area…"}));
  EXPECT_EQ(alerts(), std::vector{tooManyAreas});
  EXPECT_EQ(desktop.dialogs.activations(), 1);
  EXPECT_TRUE(desktop.dialogs.prompts().empty());
}

TEST_F(MenuCommandsTest, WithTwelveAreasThatIsSaidEvenWithoutAccessibility) {
  desktop.user.setTrusted(false);
  startWithAreas(12);
  EXPECT_TRUE(choose({"Custom areas", "Save this window as an area…"}));
  EXPECT_EQ(alerts(), std::vector{tooManyAreas});
}

TEST_F(MenuCommandsTest, TheTwelfthAreaIsStillSaved) {
  startWithAreas(11);
  desktop.dialogs.answer("Twelfth");
  EXPECT_TRUE(choose({"Custom areas", "Save this window as an area…"}));
  ASSERT_EQ(settings().customAreas.size(), 12);
  EXPECT_EQ(settings().customAreas.back().name, "Twelfth");
  EXPECT_TRUE(alerts().empty());
}

TEST_F(MenuCommandsTest, WithoutAWindowThereIsNothingToSaveAsAnArea) {
  desktop.windows.close(editor);
  desktop.windows.close(terminal);
  start();
  desktop.dialogs.answer("Column");
  EXPECT_TRUE(choose({"Custom areas", "Save this window as an area…"}));
  EXPECT_EQ(alerts(), (std::vector<DialogText>{
                          {"No window to save", "Bring the window you want to the front, then try again."}}));
  EXPECT_EQ(desktop.dialogs.activations(), 2) << "once for the prompt, once for the alert";
}

TEST_F(MenuCommandsTest, WithoutAccessibilityNoAreaIsAskedFor) {
  desktop.user.setTrusted(false);
  start();
  EXPECT_TRUE(choose({"Custom areas", "Save this window as an area…"}));
  EXPECT_TRUE(desktop.dialogs.prompts().empty());
  EXPECT_TRUE(alerts().empty());
}

TEST_F(MenuCommandsTest, ASecondPromptWhileOneIsOpenBringsTheOpenOneToTheFront) {
  start();
  desktop.dialogs.whileOpen = [this] {
    desktop.dialogs.whileOpen = nullptr;
    EXPECT_TRUE(desktop.icon.choose({"Layouts", "Save this arrangement…"}));
  };
  desktop.dialogs.answer("Column");
  EXPECT_TRUE(choose({"Custom areas", "Save this window as an area…"}));
  EXPECT_EQ(desktop.dialogs.prompts().size(), 1);
  EXPECT_EQ(desktop.dialogs.activations(), 2);
  EXPECT_EQ(settings().customAreas.size(), 1);
  EXPECT_TRUE(savedLayouts().layouts.empty());
}

}  // namespace
}  // namespace tilwin
