#include "platform/qt/settings/QtSettingsWindow.h"

#include "platform/qt/settings/AccessibleRoles.h"

namespace tilwin::qt {

QtSettingsWindow::~QtSettingsWindow() { delete frame_.data(); }

void QtSettingsWindow::show(const FormModel& form) {
  if (!isOpen()) return open(form);
  frame_->display(form);
  frame_->setWindowState(frame_->windowState() & ~Qt::WindowMinimized);
  frame_->show();
  frame_->raise();
  frame_->activateWindow();
}

void QtSettingsWindow::open(const FormModel& form) {
  installAccessibleRoles();
  colours_.ask();
  frame_ = new SettingsFrame(
      [this](const FormEvent& event) {
        // A copy, because the handler may set another one.
        if (const auto handler = handler_) handler(event);
      },
      keyCodeOf_, [this] { close(); });
  frame_->display(form);
  colours_.apply();
  frame_->show();
}

void QtSettingsWindow::update(const FormModel& form) {
  if (isOpen()) frame_->display(form);
}

void QtSettingsWindow::close() {
  if (!isOpen()) return;
  auto* frame = frame_.data();
  frame_.clear();
  frame->dismiss();
}

}  // namespace tilwin::qt
