#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>

#include "core/geometry/Rect.h"
#include "platform/ports/Overlay.h"

namespace tilwin::contract {

/// A desktop and the overlay under test, which has never been shown. Frames and points are in points.
class OverlayWorld {
public:
  OverlayWorld() = default;
  OverlayWorld(const OverlayWorld&) = delete;
  OverlayWorld& operator=(const OverlayWorld&) = delete;
  virtual ~OverlayWorld() = default;

  virtual Overlay& overlay() = 0;
  /// The program ends.
  virtual void destroyOverlay() = 0;
  /// Where the overlay is to be seen, read without the adapter; nothing if it is not.
  virtual std::optional<Rect> seen() = 0;
  /// How many windows the overlay has made that still exist, visible or not.
  virtual int windows() = 0;
  /// Waits until the condition holds. Returns false on timeout.
  virtual bool settle(const std::function<bool()>& condition) = 0;
  /// Waits until whatever is under way is done.
  virtual void settle() = 0;
};

using OverlayWorldMaker = std::unique_ptr<OverlayWorld> (*)();

class OverlayContract : public testing::TestWithParam<OverlayWorldMaker> {
protected:
  /// Shows the overlay there and waits until it stands there, or fails.
  void show(const Rect& at);

  std::unique_ptr<OverlayWorld> world = GetParam()();
};

/// An overlay among the windows of a real desktop.
class OverlayAmongWindowsWorld : public OverlayWorld {
public:
  /// Another program opens a window in front of its others and waits until it has the focus. The window
  /// opened before is closed.
  virtual void open(const Rect& at) = 0;
  virtual bool hasFocus() = 0;
  /// Whether a click there reaches the window.
  virtual bool isReachedByClick(Point at) = 0;
  /// Whether the overlay is in front of the windows of all other programs.
  virtual bool isInFront() = 0;
};

using OverlayAmongWindowsMaker = std::unique_ptr<OverlayAmongWindowsWorld> (*)();

class OverlayAmongWindowsContract : public testing::TestWithParam<OverlayAmongWindowsMaker> {
protected:
  static constexpr Rect sheet{100, 80, 400, 300};
  static constexpr Rect below{150, 120, 300, 200};

  /// Shows the overlay and waits until it is to be seen.
  void show();

  std::unique_ptr<OverlayAmongWindowsWorld> world = GetParam()();
};

}  // namespace tilwin::contract
