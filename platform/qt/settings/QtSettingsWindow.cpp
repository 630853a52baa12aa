#include "platform/qt/settings/QtSettingsWindow.h"

#include <malloc.h>

#include <QPixmapCache>
#include <QTimer>

#include "platform/qt/settings/AccessibleRoles.h"

namespace tilwin::qt {
namespace {

/// The window may stay closed for months. What Qt and the C library keep for the next one is a third of what
/// the whole program needs without it.
void giveMemoryBack() {
  QTimer::singleShot(0, [] {
    QPixmapCache::clear();
    malloc_trim(0);
  });
}

}  // namespace

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
  QObject::connect(frame_, &QObject::destroyed, giveMemoryBack);
  frame_->display(form);
  colours_.apply();
  frame_->show();
}

void QtSettingsWindow::takeColours() {
  colours_.ask();
  colours_.apply();
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
