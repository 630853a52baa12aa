#include "app/menu/LayoutCommands.h"

#include <array>
#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "app/layouts/LayoutRequests.h"
#include "core/support/ListText.h"
#include "tests/app/RunningProgram.h"

namespace tilwin {
namespace {

/// A user with an editor and a terminal open, who saves, describes, applies and deletes layouts.
struct LayoutCommandsTest : RunningProgram {
  LayoutCommandsTest() { start(); }

  void save(const std::string& name) {
    desktop.dialogs.answer(name);
    EXPECT_TRUE(choose({"Layouts", "Save this arrangement…"}));
  }
  void describe(const std::string& sentence) {
    desktop.dialogs.answer(sentence);
    EXPECT_TRUE(choose({"Layouts", "Describe a layout…"}));
  }
  /// Starts the program again with this layout only.
  void startWithLayout(const std::string& name, const std::vector<LayoutSlot>& slots) {
    LayoutStore store;
    store.layouts = {{.id = Uuid::random(), .name = name, .slots = slots}};
    std::filesystem::create_directories(layoutsFile().parent_path());
    store.write(layoutsFile());
    start();
  }
  Rect frameOf(SimulatedWindows::Handle window) { return desktop.windows.find(window)->frame; }
  [[nodiscard]] const std::vector<DialogText>& alerts() const { return desktop.dialogs.alerts(); }

  using Alerts = std::vector<DialogText>;
  std::vector<int> comings;  ///< how often the program had come to the front, at each dialog

  SimulatedWindows::Handle terminal = desktop.windows.open(
      {.bundleID = "org.example.Terminal", .appName = "Terminal", .frame = {0, 0, 360, 450}});
  SimulatedWindows::Handle editor = desktop.windows.open({.frame = {720, 0, 720, 900}});
};

TEST_F(LayoutCommandsTest, ASavedArrangementPutsEveryWindowBack) {
  save("Desk");
  desktop.windows.moveByHand(editor, {5, 5, 300, 300});
  desktop.windows.moveByHand(terminal, {6, 6, 300, 300});
  EXPECT_TRUE(choose({"Layouts", "Desk"}));
  EXPECT_EQ(frameOf(editor), (Rect{720, 0, 720, 900}));
  EXPECT_EQ(frameOf(terminal), (Rect{0, 0, 360, 450}));
  EXPECT_TRUE(alerts().empty());
}

TEST_F(LayoutCommandsTest, ASavedArrangementIsInTheFileAtOnce) {
  save("Desk");
  const auto layouts = savedLayouts().layouts;
  ASSERT_EQ(layouts.size(), 1);
  EXPECT_EQ(layouts[0].name, "Desk");
  EXPECT_FALSE(layouts[0].isAutomatic);
  EXPECT_EQ(layouts[0].slots.size(), 2);
  EXPECT_EQ(desktop.dialogs.prompts()[0].text,
            (DialogText{"Save this arrangement", "Name it, for example “Writing” or “Desk with monitor”."}));
}

TEST_F(LayoutCommandsTest, ASavedArrangementIsDatedNow) {
  using namespace std::chrono;
  const auto morning = sys_days(2026y / 3 / 1) + 9h + 30min;
  desktop.time.setWallClock(morning);
  save("Desk");
  ASSERT_EQ(savedLayouts().layouts.size(), 1);
  EXPECT_EQ(savedLayouts().layouts[0].updatedAt, morning);
}

TEST_F(LayoutCommandsTest, AnArrangementWithoutANameIsNotSaved) {
  save("");
  EXPECT_TRUE(choose({"Layouts", "Save this arrangement…"}));
  EXPECT_TRUE(savedLayouts().layouts.empty());
}

TEST_F(LayoutCommandsTest, ADeletedLayoutIsGoneFromMenuAndFile) {
  save("Desk");
  save("Writing");
  EXPECT_TRUE(choose({"Layouts", "Delete layout", "Desk"}));
  EXPECT_FALSE(desktop.icon.choose({"Layouts", "Desk"}));
  ASSERT_EQ(savedLayouts().layouts.size(), 1);
  EXPECT_EQ(savedLayouts().layouts[0].name, "Writing");
}

TEST_F(LayoutCommandsTest, OneWindowThatIsNotOpenIsToldInTheSingular) {
  save("Desk");
  desktop.windows.close(terminal);
  EXPECT_TRUE(choose({"Layouts", "Desk"}));
  EXPECT_EQ(alerts(), (Alerts{{"1 window not open", "These apps in “Desk” have no open window: Terminal"}}));
}

TEST_F(LayoutCommandsTest, SeveralWindowsThatAreNotOpenAreToldInThePlural) {
  save("Desk");
  desktop.windows.close(terminal);
  desktop.windows.close(editor);
  EXPECT_TRUE(choose({"Layouts", "Desk"}));
  EXPECT_EQ(alerts(),
            (Alerts{{"2 windows not open", "These apps in “Desk” have no open window: Editor, Terminal"}}));
}

TEST_F(LayoutCommandsTest, ASlotIsNamedByItsIdentifierIfItHasNoNameAndLeftOutIfItHasNeither) {
  startWithLayout("Odd", {{.bundleID = "org.example.Gone"}, {.titleContains = "nobody"}});
  EXPECT_TRUE(choose({"Layouts", "Odd"}));
  EXPECT_EQ(alerts(),
            (Alerts{{"2 windows not open", "These apps in “Odd” have no open window: org.example.Gone"}}));
}

TEST_F(LayoutCommandsTest, AnEmptyNameCountsAsNone) {
  startWithLayout("Odd", {{.bundleID = "org.example.Gone", .appName = ""},
                          {.bundleID = "", .appName = ""},
                          {.bundleID = "", .appName = "Mail"}});
  EXPECT_TRUE(choose({"Layouts", "Odd"}));
  EXPECT_EQ(
      alerts(),
      (Alerts{{"3 windows not open", "These apps in “Odd” have no open window: org.example.Gone, Mail"}}));
}

TEST(Joined, KeepsASeparatorOnBothSidesOfAnEmptyText) {
  EXPECT_EQ(joined({"", "a", "", "b"}, ", "), ", a, , b");
  EXPECT_EQ(joined({"alone"}, ", "), "alone");
  EXPECT_EQ(joined({}, ", "), "");
}

TEST_F(LayoutCommandsTest, ADescribedLayoutIsPlacedAndNotSaved) {
  describe("Editor left two thirds, Terminal right third");
  EXPECT_EQ(frameOf(editor), (Rect{0, 0, 960, 900}));
  EXPECT_EQ(frameOf(terminal), (Rect{960, 0, 480, 900}));
  EXPECT_TRUE(alerts().empty());
  EXPECT_TRUE(savedLayouts().layouts.empty());
  EXPECT_EQ(
      desktop.dialogs.prompts()[0],
      (SimulatedDialogs::Prompt{{"Describe a layout",
                                 "For example: Safari left two thirds, Notes right third. Tilwin reads the "
                                 "words itself, nothing leaves your Mac."},
                                "Safari left, Notes right"}));
}

TEST_F(LayoutCommandsTest, WhatCouldNotBePlacedIsToldLineByLine) {
  describe("Editor left, blah blah, Nosuch right");
  EXPECT_EQ(frameOf(editor), (Rect{0, 0, 720, 900}));
  EXPECT_EQ(
      alerts(),
      (Alerts{{"Placed what it could", "Could not read “blah blah”\nNo single open app matches “nosuch”"}}));
}

TEST_F(LayoutCommandsTest, WithNothingToPlaceTheProblemsAreTold) {
  describe("Nosuch right");
  EXPECT_EQ(alerts(), (Alerts{{"Nothing to place", "No single open app matches “nosuch”"}}));
}

TEST_F(LayoutCommandsTest, ASentenceThatSaysNothingIsAnsweredWithWhatToSay) {
  describe(",");
  EXPECT_EQ(alerts(), (Alerts{{"Nothing to place", "Describe at least one app and where it goes."}}));
}

TEST_F(LayoutCommandsTest, OneApplicationWithoutAWindowIsToldInTheSingular) {
  desktop.applications.windowless = {{.bundleIdentifier = "org.example.Mail", .localizedName = "Mail"}};
  describe("Editor left, Mail right");
  EXPECT_EQ(alerts(), (Alerts{{"Placed what it could", "1 app had no window to place"}}));
}

TEST_F(LayoutCommandsTest, SeveralApplicationsWithoutAWindowAreToldInThePlural) {
  desktop.applications.windowless = {{.bundleIdentifier = "org.example.Mail", .localizedName = "Mail"},
                                     {.bundleIdentifier = "org.example.News", .localizedName = "News"}};
  describe("News left, Mail right");
  EXPECT_EQ(alerts(), (Alerts{{"Placed what it could", "2 apps had no window to place"}}));
}

TEST_F(LayoutCommandsTest, ProblemsAreToldInTheirOrder) {
  desktop.applications.windowless = {{.bundleIdentifier = "org.example.Mail", .localizedName = "Mail"}};
  describe("Mail right, Nosuch top half, blah blah, Editor left, humbug");
  EXPECT_EQ(alerts(), (Alerts{{"Placed what it could",
                               "Could not read “blah blah”\nCould not read “humbug”\n"
                               "No single open app matches “nosuch”\n1 app had no window to place"}}));
}

TEST_F(LayoutCommandsTest, EveryAlertComesToTheFront) {
  desktop.dialogs.whileOpen = [this] { comings.push_back(desktop.dialogs.activations()); };
  save("Desk");
  describe("Nosuch right");
  describe("Editor left, Nosuch right");
  desktop.windows.close(terminal);
  EXPECT_TRUE(choose({"Layouts", "Desk"}));
  EXPECT_EQ(desktop.dialogs.prompts().size(), 3);
  EXPECT_EQ(alerts().size(), 3);
  EXPECT_EQ(comings, (std::vector{1, 2, 3, 4, 5, 6}));
}

TEST_F(LayoutCommandsTest, ProgramsInTheBackgroundAreNotMeant) {
  desktop.applications.windowless = {
      {.bundleIdentifier = "org.example.Agent", .localizedName = "Agent", .isRegular = false}};
  describe("Agent left");
  EXPECT_EQ(alerts(), (Alerts{{"Nothing to place", "No single open app matches “agent”"}}));
}

TEST_F(LayoutCommandsTest, OnAnotherDesktopThePromptSpeaksItsWords) {
  static constexpr std::array words{Wording::Word{"your Mac", "your computer"}};
  desktop.words.spoken.words = words;
  EXPECT_TRUE(choose({"Layouts", "Describe a layout…"}));
  EXPECT_NE(desktop.dialogs.prompts()[0].text.message.find("nothing leaves your computer."),
            std::string::npos);
}

TEST(TransientLayout, IsNamedByTheFirst40CharactersOfItsSentence) {
  const std::string sentence = "Editor left two thirds, Terminal right third please";
  const auto layout = LayoutRequests::transientLayout(sentence, {}, Date{});
  EXPECT_EQ(layout.name, "Editor left two thirds, Terminal right t");
  EXPECT_FALSE(layout.isAutomatic);
  EXPECT_EQ(layout.signature, std::nullopt);
}

TEST(TransientLayout, CountsCharactersAsAReaderDoes) {
  std::string flags;
  for (int count = 0; count < 41; ++count) flags += "🇫🇷";
  const auto layout = LayoutRequests::transientLayout(flags, {}, Date{});
  EXPECT_EQ(layout.name.size(), 40 * std::string("🇫🇷").size());
  EXPECT_EQ(LayoutRequests::transientLayout("short", {}, Date{}).name, "short");
}

}  // namespace
}  // namespace tilwin
