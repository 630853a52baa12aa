// Keeps pictures of the menu and the dialogs for people to look at.

#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <set>
#include <string>

#include "app/menu/MenuBarImage.h"
#include "platform/macos/menu/MacDialogs.h"
#include "platform/macos/menu/MacStatusItem.h"
#include "platform/macos/system/MacMainQueue.h"
#include "tests/desktop/harness/Screenshot.h"
#include "tests/macos/desktop/EventLoop.h"
#include "tests/macos/desktop/MacDesktop.h"
#include "tests/macos/gnustep/StatusBarUser.h"
#include "tests/macos/menu/DialogUser.h"
#include "tests/macos/menu/Keys.h"
#include "tests/macos/menu/OnScreen.h"

namespace tilwin::macos {
namespace {

/// Returns the number of colours in what the window shows, which is saved too.
int picture(const std::string& name, NSWindow* window, double margin) {
  const std::filesystem::path folder = PICTURES_FOLDER;
  std::filesystem::create_directories(folder);
  const NSRect frame = [window frame];
  const double height = NSHeight([[NSScreen mainScreen] frame]);
  const Rect area{NSMinX(frame) - margin, height - NSMaxY(frame) - margin, NSWidth(frame) + 2 * margin,
                  NSHeight(frame) + 2 * margin};
  macDesktop().screenshot(folder / (name + ".png"), area);
  return desktop::colourCount(desktop::screenshot(macDesktop().desktop().connection(), area));
}

class MenuPictures : public testing::Test {
protected:
  /// The next dialog, once it is drawn; then closes it.
  void photograph(const std::string& name) {
    user = std::make_unique<DialogUser>(
        queue,
        [name] {
          EXPECT_TRUE(runEventLoopUntil([&] { return picture(name, [NSApp modalWindow], 0) > 10; },
                                        desktop::answerTimeout));
          press(escapeKey);
        },
        attended);
  }

  MacMainQueue queue;
  MacDialogs dialogs;
  std::set<NSWindow*> attended;
  std::unique_ptr<DialogUser> user;
};

}  // namespace

TEST_F(MenuPictures, APromptIsDrawnAndKeptAsAPicture) {
  photograph("prompt");
  dialogs.activate();
  EXPECT_EQ(dialogs.prompt({.title = "Describe a layout",
                            .message = "For example: Safari left two thirds, Notes right third. Tilwin reads "
                                       "the words itself, nothing leaves your computer."},
                           "Safari left, Notes right"),
            std::nullopt);
}

TEST_F(MenuPictures, AnAlertOfSeveralLinesIsDrawnAndKeptAsAPicture) {
  photograph("alert");
  dialogs.activate();
  dialogs.alert({.title = "Placed what it could",
                 .message =
                     "Could not read “somewhere nice”\nNo single open app matches “edit”\n2 apps had no "
                     "window to place"});
}

TEST_F(MenuPictures, TheOpenMenuIsDrawnAndKeptAsAPicture) {
  MacStatusItem item(queue);
  const auto snap = [](const char* title) { return MenuItem::command(title, {"snap", title}); };
  MenuModel model{{snap("Allow Accessibility…"), MenuItem::separator(),
                   MenuItem::submenu("Halves", {snap("Left Half    ⌃⌥←")}),
                   MenuItem::command("Never move windows of Mail", {}, true),
                   MenuItem{.title = "Check for Updates…", .isEnabled = false}, snap("Quit Tilwin")}};
  item.install(
      menuBarImage(), [&] { return model; }, [](const MenuChoice&) {});
  item.setVisible(true);
  NSStatusItem* const icon = [[NSStatusBar systemStatusBar] latestItem];
  ASSERT_TRUE(runEventLoopUntil([&] { return isOnScreen([icon window]); }));
  click(queue, [icon button]);
  const auto menu = [&] { return [[[icon menu] menuRepresentation] window]; };
  ASSERT_TRUE(runEventLoopUntil([&] { return isOnScreen(menu()); }));
  EXPECT_TRUE(runEventLoopUntil([&] { return picture("menu", menu(), 26) > 10; }, desktop::answerTimeout));
}

}  // namespace tilwin::macos
