#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/layouts/Layout.h"
#include "core/layouts/LayoutStore.h"
#include "core/snap/SnapController.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::desktop {

/// Two displays, a window manager, and the parts of the program that place layouts, in this process. The
/// laptop is the primary display but the second in order, as it is to the right of the monitor.
class LayoutDesktop : public testing::Test {
public:
  static Manager manager;  ///< from the command line of this run

  static void TearDownTestSuite();

protected:
  static constexpr Rect monitor{0, 0, 1920, 1080};
  static constexpr Rect laptop{1920, 180, 1440, 900};

  void SetUp() override;
  void TearDown() override;

  static Session& session() { return *session_; }
  static Desktop& desktop() { return session_->desktop(); }

  SnapController& controller();
  WindowProvider& provider();

  /// Opens a window of another program at its initial place, in front of the others.
  WindowId open(const std::string& className, const std::string& title,
                const Rect& frame = {300, 250, 640, 480});

  /// The layout in a layouts file with this content.
  static Layout fromFile(const std::string& text);
  /// The layout in a layouts file with these slots.
  static Layout withSlots(const std::string& slots);
  /// The same layout, written to a file and read back.
  static Layout savedAndLoaded(const Layout& layout);

  /// Waits until the window is at this frame and checks that it stays there, observed independently of
  /// Tilwin, which keeps running.
  static testing::AssertionResult stands(WindowId window, const Rect& frame, double tolerance = 0);
  /// The same for a window with resize increments: up to one increment smaller.
  static testing::AssertionResult standsByItsSteps(WindowId window, const Rect& frame);
  /// Runs Tilwin and the desktop until the condition holds. Returns false on timeout.
  static bool eventually(const Predicate& condition);
  /// Runs Tilwin for that long.
  static void work(Milliseconds time);
  /// As a person does it, who sees where the window has come to.
  static void placeByHand(WindowId window, const Rect& frame);

private:
  struct Tilwin;

  static std::unique_ptr<Session> session_;
  std::shared_ptr<Tilwin> tilwin_;
  std::vector<std::unique_ptr<TestWindow>> windows_;
};

}  // namespace tilwin::desktop
