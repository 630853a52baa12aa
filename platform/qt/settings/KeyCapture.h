#pragma once

#include <QObject>
#include <cstdint>
#include <functional>
#include <optional>

#include "platform/qt/settings/Report.h"

class QKeyEvent;
class QWidget;

namespace tilwin::qt {

/// Turns a native scan code into an ANSI key code, as `HotKeySpec` has it; nothing for modifier keys and
/// for keys that an ANSI keyboard does not have.
using KeyCodeOf = std::function<std::optional<std::uint32_t>(std::uint32_t nativeScanCode)>;

/// While it is on, takes every key that is pressed in a window and reports it, before shortcuts, focus
/// navigation and the focused control see it.
class KeyCapture final : public QObject {
public:
  /// The window owns it.
  KeyCapture(QWidget* window, const Report& report, KeyCodeOf keyCodeOf);

  void setOn(bool on) { isOn_ = on; }

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  [[nodiscard]] bool isRepeat(const QKeyEvent& event) const;
  [[nodiscard]] bool takes(const QKeyEvent& event) const;
  void report(const QKeyEvent& event);

  QWidget* window_;
  const Report& report_;
  KeyCodeOf keyCodeOf_;
  bool isOn_ = false;
  std::uint32_t takenKey_ = 0;     ///< the scan code of the last key, if it was taken; else 0
  std::uint32_t releasedKey_ = 0;  ///< the scan code of the key released last
  std::uint64_t releaseTime_ = 0;
};

}  // namespace tilwin::qt
