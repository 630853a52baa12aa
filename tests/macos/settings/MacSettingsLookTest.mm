// Where things stand in the window, and that all of it can be read.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/macos/settings/Label.h"
#include "platform/macos/settings/Measured.h"
#include "platform/macos/settings/PictureView.h"
#include "platform/macos/support/Text.h"
#include "tests/contract/SampleForm.h"
#include "tests/macos/desktop/EventLoop.h"
#include "tests/macos/settings/MacSettingsDriver.h"

namespace tilwin::macos {
namespace {

struct MacSettingsLook : testing::Test {
  void open(const std::string& section) {
    driver.window().show(contract::sampleForm(section));
    ASSERT_TRUE(driver.settle([this] { return driver.isInFront(); }));
  }
  static void resize(CGFloat width, CGFloat height) {
    [MacSettingsDriver::frame() setContentSize:NSMakeSize(width, height)];
    const auto has = [&](NSSize size) { return size.width == width && size.height == height; };
    ASSERT_TRUE(runEventLoopUntil([&] {
      const auto shown = macDesktop().desktop().clientArea(MacSettingsDriver::nativeWindow());
      return has([[MacSettingsDriver::frame() contentView] bounds].size) && shown &&
             has(NSMakeSize(shown->width, shown->height));
    })) << width
        << " x " << height;
  }
  /// Keeps a picture of the window for whoever wants to look at it.
  static void keepPicture(const std::string& name) {
    const char* const folder = std::getenv("TILWIN_PICTURES");
    if (folder == nullptr) return;
    std::filesystem::create_directories(folder);
    [MacSettingsDriver::frame() display];
    const auto area = macDesktop().desktop().frame(MacSettingsDriver::nativeWindow());
    macDesktop().screenshot(std::filesystem::path(folder) / ("macos-settings-" + name + ".png"), area);
  }

  MacSettingsDriver driver;
};

/// What must not lie on each other.
bool isLeaf(NSView* view) {
  const bool isPart = [[view superview] isKindOfClass:[NSControl class]] ||
                      [[view superview] respondsToSelector:@selector(keyView)];
  return !isPart && (isControl(view) || [view isKindOfClass:[TWLabel class]] ||
                     [view isKindOfClass:[TWPictureView class]]);
}

std::string nameOf(NSView* view) {
  if ([view isKindOfClass:[TWLabel class]]) return [static_cast<TWLabel*>(view) content];
  return isControl(view) ? [static_cast<ControlView*>(view) formId] : utf8(NSStringFromClass([view class]));
}

NSRect inWindow(NSView* view) { return [view convertRect:[view bounds] toView:nil]; }

std::vector<NSView*> leaves() {
  std::vector<NSView*> found;
  for (NSView* view : visibleViews()) {
    if (isLeaf(view)) found.push_back(view);
  }
  return found;
}

void expectApart(const std::vector<NSView*>& views) {
  for (std::size_t first = 0; first < views.size(); ++first) {
    for (std::size_t second = first + 1; second < views.size(); ++second) {
      // What has been scrolled away lies below the header.
      if ([views[first] enclosingScrollView] != [views[second] enclosingScrollView]) continue;
      EXPECT_FALSE(NSIntersectsRect(inWindow(views[first]), inWindow(views[second])))
          << nameOf(views[first]) << " lies on " << nameOf(views[second]);
    }
  }
}

/// In the row, the card and the page around it, which cut off what is beyond them.
void expectInside(NSView* view) {
  for (NSView* around = [view superview]; around != nil; around = [around superview]) {
    // What scrolls may be out of sight.
    if ([around isKindOfClass:[NSClipView class]]) return;
    EXPECT_TRUE(NSContainsRect(inWindow(around), inWindow(view)))
        << nameOf(view) << " is cut off by " << nameOf(around);
  }
}

void expectWhole(NSView* view) {
  const NSRect area = inWindow(view);
  const NSSize content = [[MacSettingsDriver::frame() contentView] bounds].size;
  EXPECT_GE(NSMinX(area), 0) << nameOf(view);
  EXPECT_LE(NSMaxX(area), content.width) << nameOf(view);
  const NSSize size = [view bounds].size;
  const auto* const measured = static_cast<MeasuredView*>(view);
  EXPECT_GE(size.height, [measured heightForWidth:size.width]) << nameOf(view) << " is cut off";
  expectInside(view);
  if ([view isKindOfClass:[NSButton class]]) {
    EXPECT_GE(size.width, [measured naturalWidth]) << nameOf(view) << " is cut off";
  }
}

}  // namespace

TEST_F(MacSettingsLook, NothingIsCutOffOrCoveredAtAnySize) {
  struct Sort {
    const char* name;
    CGFloat width;
    CGFloat height;
  };
  for (const auto& [name, width, height] :
       {Sort{"small", 720, 480}, {"usual", 880, 640}, {"large", 1500, 900}}) {
    for (const char* section : {"spacing", "behavior", "shortcuts", "areas", "statistics"}) {
      SCOPED_TRACE(std::string(section) + " " + name);
      open(section);
      resize(width, height);
      const auto views = leaves();
      EXPECT_GT(views.size(), 3U);
      expectApart(views);
      for (NSView* view : views) expectWhole(view);
      keepPicture(std::string(section) + "-" + name);
    }
  }
}

TEST_F(MacSettingsLook, AShorterTextTakesLessRoom) {
  open("statistics");
  const auto heightOfAll = [] {
    CGFloat height = 0;
    for (NSView* view : leaves()) height += [view bounds].size.height;
    return height;
  };
  const CGFloat before = heightOfAll();
  auto form = contract::sampleForm("statistics");
  contract::rowIn(form, "record-row").note = "Short.";
  driver.window().update(form);
  EXPECT_LT(heightOfAll(), before - 20);
  expectApart(leaves());
}

TEST_F(MacSettingsLook, TheSearchFieldStaysWhereItIsWhileTheGroupsScroll) {
  open("shortcuts");
  NSView* const search = MacSettingsDriver::control("search");
  NSView* const last = MacSettingsDriver::control("previousDisplay.keys");
  const NSRect before = inWindow(search);
  MacSettingsDriver::reveal(last);
  EXPECT_TRUE(NSEqualRects(inWindow(search), before));
  EXPECT_FALSE(NSIsEmptyRect([last visibleRect]));
}

TEST_F(MacSettingsLook, WhatTheTabKeyLeadsToIsScrolledIntoView) {
  open("shortcuts");
  NSView* const last = MacSettingsDriver::control("previousDisplay.keys");
  EXPECT_TRUE(NSIsEmptyRect([last visibleRect]));
  driver.focus("previousDisplay.keys");
  EXPECT_TRUE(NSEqualRects(NSIntersectionRect([last visibleRect], [last bounds]), [last bounds]));
}

}  // namespace tilwin::macos
