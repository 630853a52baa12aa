#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/contract/MainLoop.h"
#include "tests/contract/SampleForm.h"
#include "tests/contract/qt/QtSettingsDriver.h"

namespace tilwin::contract {
namespace {

using Seen = std::vector<QJsonObject>;

/// What a screen reader, which is another program, sees of this one.
Seen readFromOutside() {
  auto reader = qtDesktop().start(
      "reader", {"/usr/bin/python3", "-B", "-W", "ignore",
                 std::string(TILWIN_QT_TEST_FOLDER) + "/read_accessibles.py", "contract-tests-qt-settings"});
  runMainLoopUntil([&] { return !reader.running(); }, desktop::startTimeout);
  std::istringstream lines(reader.output());
  Seen seen;
  for (std::string line; std::getline(lines, line);) {
    const auto parsed = QJsonDocument::fromJson(QByteArray::fromStdString(line));
    if (!parsed.isObject()) ADD_FAILURE() << line;
    seen.push_back(parsed.object());
  }
  return seen;
}

std::string field(const QJsonObject& object, const char* name) {
  return object.value(QLatin1String(name)).toString().toStdString();
}

bool hasState(const QJsonObject& object, const char* state) {
  return object.value(QLatin1String("states")).toArray().contains(QLatin1String(state));
}

/// The object with this role and name; fails if there is none.
QJsonObject find(const Seen& seen, const std::string& role, const std::string& name) {
  const auto found = std::ranges::find_if(seen, [&](const QJsonObject& object) {
    return field(object, "role") == role && field(object, "name") == name;
  });
  EXPECT_TRUE(found != seen.end()) << "no " << role << " called \"" << name << '"';
  return found == seen.end() ? QJsonObject() : *found;
}

class QtSettingsAccessibility : public testing::Test {
protected:
  Seen open(const std::string& section) {
    driver_.window().show(sampleForm(section));
    driver_.settle([&] { return driver_.isInFront(); });
    return readFromOutside();
  }

  QtSettingsDriver driver_;
};

TEST_F(QtSettingsAccessibility, TheWindowAndItsSectionsHaveNames) {
  const auto seen = open("spacing");
  find(seen, "frame", "Tilwin Settings");
  find(seen, "list", "Sections");
  for (const char* section : {"Behavior", "Shortcuts", "Custom areas", "Drag statistics"}) {
    EXPECT_FALSE(hasState(find(seen, "list item", section), "SELECTED"));
  }
  EXPECT_TRUE(hasState(find(seen, "list item", "Spacing"), "SELECTED"));
}

TEST_F(QtSettingsAccessibility, SlidersTellTheirValuesAndPicturesWhatTheyAre) {
  const auto seen = open("spacing");
  const auto margin = find(seen, "slider", "Screen margin");
  EXPECT_EQ(margin.value(QLatin1String("value")).toDouble(), 8);
  EXPECT_EQ(field(margin, "description"), "8 points around the screen");
  find(seen, "slider", "Gap between windows");
  find(seen, "image", "Two tiles with the margin and the gap");
}

TEST_F(QtSettingsAccessibility, TogglesTellWhetherTheyAreOn) {
  const auto seen = open("behavior");
  EXPECT_TRUE(hasState(find(seen, "check box", "Show the menu bar icon"), "CHECKED"));
  EXPECT_FALSE(hasState(find(seen, "check box", "Open Tilwin when I log in"), "CHECKED"));
  find(seen, "push button", "Open Desktop & Dock settings");
}

TEST_F(QtSettingsAccessibility, ShortcutsTellTheirKeys) {
  const auto seen = open("shortcuts");
  EXPECT_TRUE(hasState(find(seen, "text", "Search shortcuts"), "EDITABLE"));
  EXPECT_EQ(field(find(seen, "push button", "Shortcut for Top half"), "description"), "Off");
  const std::string held =
      "Another app already uses this shortcut, so it does not work. Choose a different one.";
  EXPECT_EQ(field(find(seen, "push button", "Shortcut for Right half"), "description"), "⌃⌥→. " + held);
  find(seen, "push button", "Reset Top half");
  find(seen, "panel", "Halves");
  find(seen, "label", held);
}

TEST_F(QtSettingsAccessibility, AShortcutTellsTheNoteOfItsRowUntilItIsGone) {
  auto form = sampleForm("shortcuts");
  rowIn(form, "topHalf").note = "A note.";
  driver_.window().show(form);
  ASSERT_TRUE(driver_.settle([&] { return driver_.isInFront(); }));
  const auto& button = QtSettingsDriver::control("topHalf.keys");
  EXPECT_EQ(button.accessibleDescription().toStdString(), "Off. A note.");
  driver_.window().update(sampleForm("shortcuts"));
  EXPECT_EQ(button.accessibleDescription().toStdString(), "Off");
}

TEST_F(QtSettingsAccessibility, EveryControlHasANameAndARole) {
  const std::set<std::string> roles{"slider", "check box", "text", "push button",
                                    "list",   "list item", "image"};
  for (const char* section : {"spacing", "behavior", "shortcuts", "areas", "statistics"}) {
    int controls = 0;
    for (const auto& object : open(section)) {
      const bool isFocusable = hasState(object, "FOCUSABLE");
      if (isFocusable && field(object, "role") != "frame" && field(object, "role") != "scroll pane") {
        EXPECT_TRUE(roles.contains(field(object, "role"))) << section << ": " << field(object, "role");
      }
      if (!roles.contains(field(object, "role"))) continue;
      ++controls;
      EXPECT_NE(field(object, "name"), "") << section << ": a " << field(object, "role");
    }
    EXPECT_GT(controls, 6) << section;
  }
}

}  // namespace
}  // namespace tilwin::contract
