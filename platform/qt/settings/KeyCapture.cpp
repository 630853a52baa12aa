#include "platform/qt/settings/KeyCapture.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <array>
#include <utility>

namespace tilwin::qt {
namespace {

constexpr std::array<std::pair<Qt::KeyboardModifier, std::uint32_t>, 4> modifierBits{{
    {Qt::MetaModifier, HotKeySpec::cmd},
    {Qt::ShiftModifier, HotKeySpec::shift},
    {Qt::AltModifier, HotKeySpec::option},
    {Qt::ControlModifier, HotKeySpec::control},
}};

std::uint32_t bitsOf(Qt::KeyboardModifiers modifiers) {
  std::uint32_t bits = 0;
  for (const auto& [modifier, bit] : modifierBits) {
    if (modifiers.testFlag(modifier)) bits |= bit;
  }
  return bits;
}

}  // namespace

KeyCapture::KeyCapture(QWidget* window, const Report& report, KeyCodeOf keyCodeOf)
    : QObject(window), window_(window), report_(report), keyCodeOf_(std::move(keyCodeOf)) {
  QCoreApplication::instance()->installEventFilter(this);
}

bool KeyCapture::isRepeat(const QKeyEvent& event) const {
  // Qt looks for the next event to tell a repetition, which may not have arrived yet.
  return event.isAutoRepeat() ||
         (event.nativeScanCode() == releasedKey_ && event.timestamp() == releaseTime_);
}

bool KeyCapture::takes(const QKeyEvent& event) const {
  if (!window_->isActiveWindow()) return false;
  // A key that is still held when the recording has ended was not meant for the control that has the focus.
  return isOn_ || (isRepeat(event) && event.nativeScanCode() == takenKey_);
}

bool KeyCapture::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  const bool isPress = type == QEvent::KeyPress;
  const bool isRelease = type == QEvent::KeyRelease;
  if (!isPress && !isRelease && type != QEvent::ShortcutOverride) return false;
  auto& key = static_cast<QKeyEvent&>(*event);
  const bool isTaken = takes(key);
  const bool isFresh = isPress && !isRepeat(key);
  if (isRelease) {
    releasedKey_ = key.nativeScanCode();
    releaseTime_ = key.timestamp();
  }
  if (isFresh) takenKey_ = isTaken ? key.nativeScanCode() : 0;
  if (!isTaken) return QObject::eventFilter(watched, event);
  event->accept();
  if (isFresh) report(key);
  return true;
}

void KeyCapture::report(const QKeyEvent& event) {
  const auto keyCode = keyCodeOf_(event.nativeScanCode());
  if (keyCode) report_(form::KeyPressed{{*keyCode, bitsOf(event.modifiers())}});
}

}  // namespace tilwin::qt
