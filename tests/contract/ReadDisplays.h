#pragma once

#include <optional>
#include <vector>

#include "platform/qt/QtMainQueue.h"
#include "platform/x11/displays/X11Displays.h"
#include "tests/contract/TestLogs.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::x11 {

/// What is read of a desktop's displays.
class ReadDisplays {
public:
  explicit ReadDisplays(desktop::Session& session);

  /// As they are once every event so far has been handled.
  const std::vector<DisplayInfo>& current();

private:
  FailingLog log_;
  qt::QtMainQueue queue_;
  std::optional<X11Connection> x_;
  std::optional<X11Displays> displays_;
};

}  // namespace tilwin::x11
