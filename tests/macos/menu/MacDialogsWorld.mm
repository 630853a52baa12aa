#import <AppKit/AppKit.h>

#include <algorithm>
#include <vector>

#include "platform/macos/menu/MacDialogs.h"
#include "platform/macos/support/Text.h"
#include "platform/macos/system/MacMainQueue.h"
#include "tests/contract/DialogsContract.h"
#include "tests/macos/desktop/EventLoop.h"
#include "tests/macos/menu/DialogUser.h"
#include "tests/macos/menu/Keys.h"
#include "tests/macos/menu/OnScreen.h"

namespace tilwin::macos {
namespace {

using contract::ShownDialog;
using contract::ShownField;

/// The views of this class in the dialog in front.
template <typename View>
std::vector<View*> viewsOf() {
  std::vector<View*> views;
  for (NSView* view in [[[NSApp modalWindow] contentView] subviews]) {
    if ([view isKindOfClass:[View class]]) views.push_back(static_cast<View*>(view));
  }
  return views;
}

/// As one reads on a Mac, where the first button is at the right.
std::vector<NSButton*> buttonsFromRight() {
  auto buttons = viewsOf<NSButton>();
  std::ranges::sort(buttons, std::greater(), [](NSButton* button) { return NSMinX([button frame]); });
  return buttons;
}

std::vector<NSTextField*> textsFromTop() {
  auto texts = viewsOf<NSTextField>();
  std::ranges::sort(texts, std::greater(), [](NSTextField* field) { return NSMinY([field frame]); });
  return texts;
}

NSTextField* field() {
  const auto texts = textsFromTop();
  const auto found = std::ranges::find_if(texts, [](NSTextField* each) { return [each isEditable]; });
  return found == texts.end() ? nil : *found;
}

std::string typedIn(NSTextField* field) {
  NSText* const editor = [field currentEditor];
  return utf8(editor == nil ? [field stringValue] : [editor string]);
}

ShownField shownField(NSTextField* field) {
  const NSSize size = [field frame].size;
  return {.placeholder = utf8([static_cast<NSTextFieldCell*>([field cell]) placeholderString]),
          .text = typedIn(field),
          .size = {size.width, size.height},
          .hasFocus = [field currentEditor] != nil && [[field window] isKeyWindow]};
}

class MacDialogsWorld : public contract::DialogsWorld {
public:
  Dialogs& dialogs() override { return dialogs_; }
  MainQueue& mainQueue() override { return queue_; }
  void whenOpen(Steps steps) override {
    users_.push_back(std::make_unique<DialogUser>(queue_, std::move(steps), attended_));
  }

  ShownDialog shown() override {
    ShownDialog shown;
    std::vector<std::string> texts;
    for (NSTextField* each : textsFromTop()) {
      if (![each isEditable]) texts.push_back(utf8([each stringValue]));
    }
    texts.resize(2);
    shown = {.title = texts[0], .message = texts[1]};
    for (NSButton* button : buttonsFromRight()) shown.buttons.push_back(utf8([button title]));
    if (field() != nil) shown.field = shownField(field());
    return shown;
  }
  void type(const std::string& text) override {
    const std::string wanted = typedIn(field()) + text;
    for (const char character : text) macos::press(keyOf(character));
    EXPECT_TRUE(runEventLoopUntil([&] { return typedIn(field()) == wanted; }, desktop::answerTimeout));
  }
  void press(const std::string& title) override {
    const auto buttons = buttonsFromRight();
    const auto found =
        std::ranges::find_if(buttons, [&](NSButton* each) { return utf8([each title]) == title; });
    ASSERT_NE(found, buttons.end()) << title;
    click(queue_, *found);
  }
  void pressReturn() override { macos::press(returnKey); }
  void pressEscape() override { macos::press(escapeKey); }
  /// Alerts have no button for that in their frame; Command-period closes them too.
  void closeWindow() override { macos::press(keyOf('.', NSCommandKeyMask)); }

private:
  MacDialogs dialogs_;
  MacMainQueue queue_;
  std::set<NSWindow*> attended_;
  std::vector<std::unique_ptr<DialogUser>> users_;
};

std::unique_ptr<contract::DialogsWorld> makeMacDialogs() { return std::make_unique<MacDialogsWorld>(); }

}  // namespace
}  // namespace tilwin::macos

namespace tilwin::contract {

INSTANTIATE_TEST_SUITE_P(Mac, DialogsContract, testing::Values(&macos::makeMacDialogs));

}  // namespace tilwin::contract
