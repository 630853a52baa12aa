// Views of the window on their own.

#include <gtest/gtest.h>

#include <vector>

#include "platform/macos/settings/PictureView.h"
#include "platform/macos/settings/PushButton.h"
#include "platform/macos/support/Held.h"
#include "platform/macos/support/Text.h"

using tilwin::FormPicture;

/// Remembers where it changes the pointer.
@interface TWCursorPicture : TWPictureView {
@public
  std::vector<NSRect> areas;
}
@end

@implementation TWCursorPicture

- (void)addCursorRect:(NSRect)area cursor:(NSCursor*)cursor {
  (void)cursor;
  areas.push_back(area);
}

@end

/// Remembers whose pointer areas are out of date.
@interface TWCursorWindow : NSWindow {
@public
  std::vector<NSView*> outdated;
}
@end

@implementation TWCursorWindow

- (void)invalidateCursorRectsForView:(NSView*)view {
  outdated.push_back(view);
}

@end

namespace tilwin::macos {
namespace {

Held<TWPushButton*> buttonOf(const FormButton& model) {
  auto button = owned([[TWPushButton alloc] initWithReport:[](const FormEvent&) {}]);
  [button.get() displayModel:model];
  return button;
}

struct MacSettingsPicture : testing::Test {
  MacSettingsPicture() {
    [picture.get() setFrame:NSMakeRect(0, 0, 232, 140)];
    [clip.get() addSubview:picture.get()];
    [[window.get() contentView] addSubview:clip.get()];
    [picture.get() displayPicture:shown];
  }

  FormPicture shown{.id = "areas", .tiles = {{{0, 0, 0.5, 1}, true}, {{0.5, 0, 0.5, 1}, false}}};
  Held<TWCursorWindow*> window = owned([[TWCursorWindow alloc] initWithContentRect:NSMakeRect(0, 0, 300, 300)
                                                                         styleMask:NSWindowStyleMaskTitled
                                                                           backing:NSBackingStoreBuffered
                                                                             defer:YES]);
  Held<NSView*> clip = owned([[NSView alloc] initWithFrame:NSMakeRect(0, 0, 60, 300)]);
  Held<TWCursorPicture*> picture = owned([[TWCursorPicture alloc] initWithScale:PictureScale::large
                                                                         report:[](const FormEvent&) {}]);
};

}  // namespace

TEST(MacSettingsButton, ASymbolStandsBesideATitleAndTakesRoom) {
  const auto plain = buttonOf({.title = "Delete"});
  const auto both = buttonOf({.title = "Delete", .symbol = FormSymbol::trash});
  EXPECT_GE([both.get() naturalWidth], [plain.get() naturalWidth] + [[both.get() image] size].width);
  EXPECT_EQ([both.get() imagePosition], NSImageLeft);
  EXPECT_EQ([plain.get() image], nil);
  EXPECT_EQ([both.get() toolTip], nil);
}

TEST(MacSettingsButton, ASymbolAloneIsExplainedByItsToolTip) {
  const auto button = buttonOf({.label = "Delete Reading", .symbol = FormSymbol::trash});
  EXPECT_EQ([button.get() imagePosition], NSImageOnly);
  EXPECT_EQ(utf8([button.get() toolTip]), "Delete Reading");
  [button.get() displayModel:{.title = "Delete", .label = "Delete Reading"}];
  EXPECT_EQ([button.get() imagePosition], NSNoImage);
  EXPECT_EQ([button.get() image], nil);
  EXPECT_EQ([button.get() toolTip], nil);
}

TEST_F(MacSettingsPicture, ThePointerIsAHandOnTheHighlightedTileAsFarAsItIsSeen) {
  [picture.get() resetCursorRects];
  ASSERT_EQ(picture.get()->areas.size(), 1U);
  const NSRect area = picture.get()->areas.front();
  EXPECT_EQ(NSMinX(area), NSMinX([picture.get() screen]));
  EXPECT_EQ(NSMaxX(area), 60);
  EXPECT_EQ(NSHeight(area), NSHeight([picture.get() screen]));
}

TEST_F(MacSettingsPicture, ThePointerFollowsATileThatMoves) {
  window.get()->outdated.clear();
  [picture.get() displayPicture:shown];
  EXPECT_TRUE(window.get()->outdated.empty());
  shown.tiles.front().rect.x = 0.25;
  [picture.get() displayPicture:shown];
  EXPECT_EQ(window.get()->outdated, (std::vector<NSView*>{picture.get()}));
}

}  // namespace tilwin::macos
