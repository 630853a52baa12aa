// What a person reads in the window.

#include <algorithm>
#include <utility>

#include "platform/macos/settings/FieldView.h"
#include "platform/macos/settings/GroupView.h"
#include "platform/macos/settings/Label.h"
#include "platform/macos/settings/PictureView.h"
#include "platform/macos/settings/RowView.h"
#include "platform/macos/settings/SectionPage.h"
#include "platform/macos/settings/Sidebar.h"
#include "platform/macos/settings/ToggleView.h"
#include "platform/macos/support/Text.h"
#include "tests/macos/settings/MacSettingsDriver.h"

namespace tilwin::macos {
namespace {

using contract::FieldSelection;
using contract::ShownForm;
using contract::ShownGroup;
using contract::ShownRow;

/// The views of a class within another view, in reading order.
template <typename View>
std::vector<View*> inside(NSView* within, Class wanted) {
  std::vector<View*> found;
  for (NSView* view : visibleViewsIn(within)) {
    if ([view isKindOfClass:wanted]) found.push_back(static_cast<View*>(view));
  }
  const auto place = [](NSView* view) {
    const NSRect area = [view convertRect:[view bounds] toView:nil];
    return std::pair(-NSMidY(area), NSMinX(area));
  };
  std::ranges::sort(found, {}, place);
  return found;
}

/// The text of the label of that tone which is a child of the view and is read for itself; or nothing.
std::string labelText(NSView* in, LabelTone tone) {
  for (NSView* child in [in subviews]) {
    if (![child isKindOfClass:[TWLabel class]] || [child isHidden] || ![child isAccessibilityElement])
      continue;
    if ([static_cast<TWLabel*>(child) tone] == tone) return [static_cast<TWLabel*>(child) content];
  }
  return {};
}

ShownRow shownRow(TWRowView* row) {
  ShownRow shown{.id = [row formId],
                 .title = labelText(row, LabelTone::title),
                 .note = labelText(row, LabelTone::secondary),
                 .problem = labelText(row, LabelTone::problem)};
  for (NSView* view : inside<NSView>(row, [NSView class])) {
    if (isControl(view)) {
      shown.controls.push_back([static_cast<ControlView*>(view) formId]);
    }
  }
  return shown;
}

NSTextField* fieldWith(const std::string& id) {
  return [static_cast<TWFieldView*>(MacSettingsDriver::control(id)) field];
}

}  // namespace

ShownForm MacSettingsDriver::shown() {
  NSWindow* const window = frame();
  if (window == nil) return {};
  ShownForm shown{.windowTitle = utf8([window title])};
  for (TWSectionButton* button : inside<TWSectionButton>([window contentView], [TWSectionButton class])) {
    shown.sections.push_back(utf8([button title]));
    if ([button isChosen]) shown.chosen = shown.sections.back();
  }
  for (TWSectionPage* page : inside<TWSectionPage>([window contentView], [TWSectionPage class])) {
    shown.title = labelText(page, LabelTone::pageTitle);
    shown.help = labelText(page, LabelTone::secondary);
    for (NSView* scrolled : inside<NSView>(page, [TWScrolledView class])) {
      shown.emptyText = labelText(scrolled, LabelTone::secondary);
    }
    for (TWGroupView* group : inside<TWGroupView>(page, [TWGroupView class])) {
      ShownGroup seen{.id = [group formId], .heading = labelText(group, LabelTone::heading)};
      for (TWRowView* row : inside<TWRowView>(group, [TWRowView class])) seen.rows.push_back(shownRow(row));
      shown.groups.push_back(seen);
    }
  }
  return shown;
}

bool MacSettingsDriver::isOn(const std::string& toggle) {
  return [static_cast<TWToggleView*>(control(toggle)) isOn] == YES;
}

double MacSettingsDriver::sliderPosition(const std::string& slider) {
  auto* const view = static_cast<NSSlider*>(control(slider));
  return ([view doubleValue] - [view minValue]) / ([view maxValue] - [view minValue]);
}

std::string MacSettingsDriver::caption(const std::string& slider) {
  for (NSView* sibling in [[control(slider) superview] subviews]) {
    if (![sibling isKindOfClass:[TWLabel class]] || [sibling isHidden]) continue;
    if (![sibling isAccessibilityElement]) return [static_cast<TWLabel*>(sibling) content];
  }
  return {};
}

std::string MacSettingsDriver::text(const std::string& field) { return utf8([fieldWith(field) stringValue]); }

FieldSelection MacSettingsDriver::selection(const std::string& field) {
  NSText* const editor = [fieldWith(field) currentEditor];
  if (editor == nil) return {};
  const NSRange range = [editor selectedRange];
  return {.cursor = static_cast<int>(NSMaxRange(range)),
          .start = range.length > 0 ? static_cast<int>(range.location) : 0,
          .length = static_cast<int>(range.length)};
}

std::string MacSettingsDriver::buttonTitle(const std::string& buttonOrRecorder) {
  return utf8([static_cast<NSButton*>(control(buttonOrRecorder)) title]);
}

std::vector<FormPicture::Tile> MacSettingsDriver::tiles(const std::string& picture) {
  return [static_cast<TWPictureView*>(control(picture)) picture].tiles;
}

std::string MacSettingsDriver::focused() {
  NSResponder* const responder = [frame() firstResponder];
  if (![responder isKindOfClass:[NSView class]]) return {};
  for (auto* view = static_cast<NSView*>(responder); view != nil; view = [view superview]) {
    if (isControl(view)) return [static_cast<ControlView*>(view) formId];
  }
  return {};
}

}  // namespace tilwin::macos
