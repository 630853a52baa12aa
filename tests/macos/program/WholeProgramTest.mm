// The program as it is built for macOS, used from outside.

#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "platform/macos/support/Text.h"
#include "platform/macos/system/MacMainQueue.h"
#include "tests/macos/c/objects/CountedObjects.h"
#include "tests/macos/desktop/MacDesktop.h"
#include "tests/macos/gnustep/StatusBarUser.h"
#include "tests/macos/menu/Keys.h"
#include "tests/macos/menu/OnScreen.h"
#include "tests/macos/program/Mac.h"
#include "tests/macos/program/Person.h"
#include "tests/macos/settings/MacSettingsDriver.h"

/// The main function of app/main.mm, which has this name here.
int tilwinMain(int argc, char** argv);

namespace tilwin::macos {
namespace {

int run(std::vector<std::string> words = {}) {
  words.insert(words.begin(), "Tilwin");
  std::vector<char*> arguments;
  arguments.reserve(words.size());
  for (std::string& word : words) arguments.push_back(word.data());
  return tilwinMain(static_cast<int>(arguments.size()), arguments.data());
}

/// What it prints; it must end with this status.
std::string outputOf(const std::vector<std::string>& words, int status = 0) {
  std::ostringstream said;
  auto* const standard = std::cout.rdbuf(said.rdbuf());
  EXPECT_EQ(run(words), status);
  std::cout.rdbuf(standard);
  return said.str();
}

void drawAll() {
  for (NSWindow* window in [NSApp windows]) {
    if ([window isVisible]) [window display];
  }
}

/// Keeps a picture of the screen.
void look(Person& person, const char* name) {
  person.act(drawAll);
  const std::filesystem::path folder = PICTURES_FOLDER;
  std::filesystem::create_directories(folder);
  person.act([file = folder / (std::string(name) + ".png")] { macDesktop().screenshot(file); });
}

NSStatusItem* icon() { return [[NSStatusBar systemStatusBar] latestItem]; }

/// Opens the icon's menu and chooses the entry at the end of this path of titles.
void choose(Person& person, MainQueue& queue, const std::vector<std::string>& path) {
  person.act([&queue] { click(queue, [icon() button]); });
  ASSERT_TRUE(person.sees([] { return isOnScreen([[[icon() menu] menuRepresentation] window]); }));
  person.act([&] {
    NSMenu* menu = [icon() menu];
    for (std::size_t step = 0; step + 1 < path.size(); ++step) {
      menu = [[menu itemWithTitle:text(path[step])] submenu];
    }
    const NSInteger index = [menu indexOfItemWithTitle:text(path.back())];
    ASSERT_GE(index, 0) << path.back();
    [icon() chooseItemAtIndex:index ofMenu:menu];
  });
}

void type(Person& person, std::string_view letters) {
  for (const char letter : letters) person.act([letter] { press(keyOf(letter)); });
  person.act([] { press(returnKey); });
}

/// The columns of the visible frame from one fraction of its width to another.
Rect columns(double from, double to, double gap = 0) {
  const Rect all = Mac::visibleFrame();
  const double left = from == 0 ? from * all.width : from * all.width + gap / 2;
  const double right = to == 1 ? to * all.width : to * all.width - gap / 2;
  return {all.x + left, all.y, right - left, all.height};
}

class WholeProgram : public testing::Test {
protected:
  void TearDown() override { EXPECT_EQ(c::objects().takeFindings(), std::vector<std::string>()); }

  testing::AssertionResult comesTo(Person& person, SimulatedAccessibleDesktop::Node window,
                                   const Rect& wanted) {
    std::optional<Rect> seen;
    person.sees([&] { return (seen = mac.desktop.standing(window)) == wanted; });
    if (seen == wanted) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "wanted " << wanted << ", but saw " << testing::PrintToString(seen);
  }

  void snapByHotKey(Person& user) {
    user.act([this] { mac.press(leftHalf); });
    EXPECT_TRUE(comesTo(user, mac.safari, columns(0, 0.5)));
  }

  void describeLayout(Person& user) {
    choose(user, hands, {"Layouts", "Describe a layout…"});
    ASSERT_TRUE(user.sees([] { return [NSApp modalWindow] != nil && [[NSApp modalWindow] isKeyWindow]; }));
    look(user, "describe");
    type(user, "safari left two thirds and notes right third");
    EXPECT_TRUE(comesTo(user, mac.notes, columns(2.0 / 3, 1)));
    EXPECT_TRUE(comesTo(user, mac.safari, columns(0, 2.0 / 3)));
  }

  void commandFromElsewhere(Person& user) {
    user.act([] { EXPECT_EQ(run({"snap", "rightHalf"}), 0); });
    EXPECT_TRUE(comesTo(user, mac.safari, columns(0.5, 1)));
    user.act([] { EXPECT_EQ(outputOf({"get", "gap"}), "0\n"); });
  }

  void changeSetting(Person& user) {
    choose(user, hands, {"Settings…"});
    ASSERT_TRUE(user.sees([] { return MacSettingsDriver::frame() != nil; }));
    user.act([] {
      NSView* const slider = MacSettingsDriver::control("gap");
      const NSRect bounds = [slider bounds];
      const NSPoint middle = NSMakePoint(NSMidX(bounds), NSMidY(bounds));
      Hands([slider window]).click([slider convertPoint:middle toView:nil]);
    });
    EXPECT_TRUE(user.sees([this] { return mac.settings().find("\"gap\":16") != std::string::npos; }))
        << mac.settings();
    look(user, "settings");
    user.act([this] { mac.press(leftHalf); });
    EXPECT_TRUE(comesTo(user, mac.safari, columns(0, 0.5, 16)));
  }

  Mac mac;
  MacMainQueue hands;
  const HotKeySpec leftHalf{123, HotKeySpec::control | HotKeySpec::option};
};

TEST_F(WholeProgram, TellsItsStatusAndEnds) {
  EXPECT_EQ(outputOf({"--status"}).substr(0, 34), "accessibilityTrusted=true displays");
}

TEST_F(WholeProgram, CarriesOutACommandItselfWhereNoInstanceRuns) {
  EXPECT_EQ(outputOf({"get", "gap"}), "0\n");
  EXPECT_EQ(outputOf({"snap", "rightHalf"}), "");
  EXPECT_EQ(mac.desktop.standing(mac.safari), columns(0.5, 1));
  EXPECT_EQ(outputOf({"quit"}, 3), "");
  EXPECT_EQ(outputOf({"snap", "rightHlaf"}, 2), "");
}

TEST_F(WholeProgram, IsUsedByHotKeyMenuPromptAndSettingsAndQuits) {
  hands.postAfter(std::chrono::minutes(1), [this] {
    ADD_FAILURE() << "The program has not ended.";
    hands.stop(0);
  });
  Person person([this](Person& user) {
    ASSERT_TRUE(user.sees([] { return icon() != nil && [icon() isVisible]; }));
    look(user, "icon");
    snapByHotKey(user);
    commandFromElsewhere(user);
    describeLayout(user);
    changeSetting(user);
    choose(user, hands, {"Quit Tilwin"});
  });
  EXPECT_EQ(run(), 0);
}

}  // namespace
}  // namespace tilwin::macos
