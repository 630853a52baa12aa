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

/// Two displays, a window manager, and what the program places layouts with, in this process. The laptop is
/// the primary display and yet the second in order, as it stands to the right of the monitor.
class LayoutDesktop : public testing::Test {
public:
  static Manager manager;  ///< what this run of the test program was asked to test with

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

  /// A window of another program, at its first place, in front of those opened before.
  WindowId open(const std::string& className, const std::string& title,
                const Rect& frame = {300, 250, 640, 480});

  /// The layout in a layouts file with this text.
  static Layout fromFile(const std::string& text);
  /// The layout in a layouts file with these slots and nothing of interest besides.
  static Layout withSlots(const std::string& slots);
  /// The same layout once it has been in a file.
  static Layout savedAndLoaded(const Layout& layout);

  /// Whether the frame comes to be that and stays, as a stranger to Tilwin sees it. Tilwin goes on working.
  static testing::AssertionResult stands(WindowId window, const Rect& frame, double tolerance = 0);
  /// The same for a window whose size goes by steps: up to one step smaller.
  static testing::AssertionResult standsByItsSteps(WindowId window, const Rect& frame);
  /// Lets Tilwin and the desktop work until it holds. False when it does not in time.
  static bool eventually(const Predicate& condition);
  /// Lets Tilwin work for that long.
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
