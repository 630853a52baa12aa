#include "platform/macos/menu/MacDialogs.h"

#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <vector>

#include "platform/macos/support/Text.h"
#include "platform/macos/system/MacMainQueue.h"
#include "tests/macos/menu/DialogUser.h"
#include "tests/macos/menu/Keys.h"

namespace tilwin::macos {
namespace {

class MacDialogsTest : public testing::Test {
protected:
  void whenOpen(contract::DialogsWorld::Steps steps) {
    users.push_back(std::make_unique<DialogUser>(queue, std::move(steps), attended));
  }

  MacMainQueue queue;
  MacDialogs dialogs;
  std::set<NSWindow*> attended;
  std::vector<std::unique_ptr<DialogUser>> users;
  const DialogText text{.title = "Save this arrangement", .message = "Name it."};
};

}  // namespace

TEST_F(MacDialogsTest, TheFieldOfAPromptIsNamedAfterItsTitle) {
  std::string name;
  whenOpen([&] {
    for (NSView* view in [[[NSApp modalWindow] contentView] subviews]) {
      if (NSEqualSizes([view frame].size, NSMakeSize(360, 24))) name = utf8([view accessibilityLabel]);
    }
    press(escapeKey);
  });
  EXPECT_EQ(dialogs.prompt(text, ""), std::nullopt);
  EXPECT_EQ(name, text.title);
}

TEST_F(MacDialogsTest, DialogsThatAreOpenOverEachOtherAreAllCancelledWhenTheMainQueueStops) {
  std::optional<std::string> answer = "not asked";
  bool accepted = true;
  queue.post([&] {
    whenOpen([&] {
      whenOpen([&] { queue.stop(4); });
      accepted = dialogs.confirm(text, "Delete");
    });
    answer = dialogs.prompt(text, "");
  });
  EXPECT_EQ(queue.run(), 4);
  EXPECT_EQ(answer, std::nullopt);
  EXPECT_FALSE(accepted);
}

TEST_F(MacDialogsTest, TasksAndTimersRunWhileADialogIsOpen) {
  int ran = 0;
  bool isOpen = false;
  whenOpen([&] { isOpen = true; });
  queue.post([&] { ++ran; });
  queue.postAfter(MainQueue::Seconds{0.01}, [&] { ++ran; });
  const auto timer = queue.repeat(MainQueue::Seconds{0.005}, {}, [&] {
    if (!isOpen || ran != 2) return;
    ++ran;
    press(returnKey);
  });
  dialogs.alert(text);
  EXPECT_EQ(ran, 3);
}

}  // namespace tilwin::macos
