#include "platform/macos/settings/SettingsFrame.h"

#include <algorithm>
#include <utility>

#include "platform/macos/settings/Measured.h"
#include "platform/macos/support/Text.h"

namespace tilwin::macos {

SettingsFrame::SettingsFrame(Report report, std::function<void()> onClosing)
    : target_(std::make_shared<Report>(std::move(report))),
      report_([target = target_](const FormEvent& event) {
        // A copy, as the call may close the window.
        if (const Report current = *target) current(event);
      }),
      onClosing_(std::move(onClosing)),
      window_(owned([[TWFormWindow alloc] initForForm])),
      capture_(window_.get(), report_),
      sidebar_(owned([[TWSidebar alloc] initWithReport:report_])) {
  window_.get()->onClosing = [this] {
    const Report target = *target_;
    isClosing_ = true;
    onClosing_();
    target(form::WindowClosed{});
  };
  window_.get()->onLosingKeys = [report = report_] { report(form::FocusLost{}); };
  window_.get()->onSearching = [this] { return page_ && [page_.get() focusSearch]; };
  [sidebar_.get() setAutoresizingMask:NSViewHeightSizable];
  [[window_.get() contentView] addSubview:sidebar_.get()];
  [window_.get() setInitialFirstResponder:sidebar_.get()];
}

void SettingsFrame::display(const FormModel& form) {
  [window_.get() setTitle:text(form.title)];
  capture_.setOn(form.isRecording());
  [sidebar_.get() displayModel:form];
  const auto chosen = std::ranges::find(form.sections, form.chosenSection, &FormSection::id);
  if (chosen != form.sections.end()) displaySection(*chosen);
  arrange();
  orderFocus();
}

void SettingsFrame::displaySection(const FormSection& section) {
  if (page_ && [page_.get() formId] == section.id) return [page_.get() displayModel:section];
  const auto former = std::exchange(page_, owned([[TWSectionPage alloc] initWithReport:report_]));
  [page_.get() setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
  [[window_.get() contentView] addSubview:page_.get()];
  [page_.get() displayModel:section];
  if (!former) return;
  NSResponder* const focus = [window_.get() firstResponder];
  const bool hadFocus =
      [focus isKindOfClass:[NSView class]] && [static_cast<NSView*>(focus) isDescendantOf:former.get()];
  if (hadFocus) [window_.get() makeFirstResponder:sidebar_.get()];
  discard(former.get());
}

void SettingsFrame::arrange() {
  const NSSize size = [[window_.get() contentView] bounds].size;
  const CGFloat side = [sidebar_.get() naturalWidth];
  place(sidebar_.get(), NSMakeRect(0, 0, side, size.height));
  [sidebar_.get() arrange];
  if (!page_) return;
  place(page_.get(), NSMakeRect(side, 0, size.width - side, size.height));
  [page_.get() arrange];
}

void SettingsFrame::orderFocus() {
  std::vector<NSView*> order{sidebar_.get()};
  if (page_) [page_.get() addKeyViewsTo:order];
  if (order == focusOrder_) return;
  for (std::size_t index = 0; index < order.size(); ++index) {
    [order[index] setNextKeyView:order[(index + 1) % order.size()]];
  }
  focusOrder_ = std::move(order);
}

void SettingsFrame::present() {
  [NSApp activateIgnoringOtherApps:YES];
  if ([window_.get() isMiniaturized]) [window_.get() deminiaturize:nil];
  [window_.get() makeKeyAndOrderFront:nil];
}

void SettingsFrame::dismiss() {
  if (!*target_) return;
  *target_ = nullptr;
  capture_.end();
  [window_.get() fallSilent];
  if (!isClosing_) [window_.get() close];
}

}  // namespace tilwin::macos
