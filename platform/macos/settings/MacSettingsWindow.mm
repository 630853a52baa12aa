#include "platform/macos/settings/MacSettingsWindow.h"

#import <Foundation/Foundation.h>

#include "platform/macos/settings/SettingsFrame.h"

/// Owns a frame until it is released.
@interface TWFormerFrame : NSObject {
@public
  std::shared_ptr<tilwin::macos::SettingsFrame> frame;
}
@end

@implementation TWFormerFrame
@end

namespace tilwin::macos {
namespace {

/// The frame may be in the midst of the event that has closed it.
void releaseAfterEvent(std::shared_ptr<SettingsFrame> frame) {
  auto* const former = [[[TWFormerFrame alloc] init] autorelease];
  former->frame = std::move(frame);
}

}  // namespace

MacSettingsWindow::~MacSettingsWindow() { MacSettingsWindow::close(); }

void MacSettingsWindow::show(const FormModel& form) {
  if (!isOpen()) {
    frame_ = std::make_shared<SettingsFrame>(
        [this](const FormEvent& event) {
          // A copy, because the handler may set another one.
          if (const auto handler = handler_) handler(event);
        },
        [this] { close(); });
  }
  // Held, as bringing it to the front may close another window, and that this one.
  const auto frame = frame_;
  frame->display(form);
  frame->present();
}

void MacSettingsWindow::update(const FormModel& form) {
  if (isOpen()) frame_->display(form);
}

void MacSettingsWindow::close() {
  if (!isOpen()) return;
  const auto frame = std::exchange(frame_, nullptr);
  frame->dismiss();
  releaseAfterEvent(frame);
}

}  // namespace tilwin::macos
