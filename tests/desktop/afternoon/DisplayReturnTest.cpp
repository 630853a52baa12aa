#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <vector>

#include "tests/desktop/DesktopTest.h"
#include "tests/desktop/afternoon/SavedFiles.h"
#include "tests/desktop/harness/RealApplication.h"

namespace tilwin::desktop {

namespace {

using Plugged = std::vector<PluggedDisplay>;
using Frames = std::map<WindowId, Rect>;

/// Tilwin captures the windows every 20 seconds; whether the machine is busy or not, that is soon enough.
constexpr Milliseconds captureTimeout{45000};
/// The windows go back 2.5 seconds after the display is there.
constexpr Milliseconds returnTimeout{10000};
/// Longer than that: what does not move until then, stays.
constexpr Milliseconds noReturn{4000};

const PluggedDisplay laptop{.output = "DUMMY0", .mode = {1440, 900}, .position = {0, 0}, .primary = true};
const PluggedDisplay monitor{.output = "DUMMY1", .mode = {1920, 1080}, .position = {1440, 0}};

PluggedDisplay twin(const char* output, int x) {
  return {.output = output, .mode = {1920, 1080}, .position = {x, 0}, .primary = x == 0};
}

const Plugged oneTwin{twin("DUMMY0", 0)};
const Plugged twins{twin("DUMMY0", 0), twin("DUMMY1", 1920)};
const Plugged twinsSwapped{twin("DUMMY1", 0), twin("DUMMY0", 1920)};

/// Three programs on two displays.
class ReturningDisplays : public testing::Test {
protected:
  void begin(const Plugged& displays) {
    session_ =
        std::make_unique<Session>(SessionOptions{.manager = arguments().manager, .displays = displays});
    for (const auto application : {Application::xterm, Application::qt, Application::gtkMenuBar}) {
      programs_.push_back(std::make_unique<RealApplication>(application, session_->home(),
                                                            session_->environment(), desktop()));
    }
  }

  Desktop& desktop() { return session_->desktop(); }

  /// Places the windows by hand; returns the frames they took.
  Frames place(const std::vector<Rect>& frames) {
    Frames taken;
    for (std::size_t index = 0; index < programs_.size(); ++index) {
      const WindowId window = programs_.at(index)->window();
      desktop().settle();
      desktop().place(window, frames.at(index));
      desktop().settle();
      taken[window] = desktop().frame(window).value_or(Rect());
    }
    return taken;
  }

  /// Starts Tilwin and waits until it has captured all windows.
  void startTilwinAndWaitForCapture() {
    tilwin_ = std::make_unique<TilwinProcess>(*session_, arguments().tilwin);
    const auto captured = [this] {
      const auto layouts = savedLayouts(session_->home());
      return layouts && layouts->automatic == std::vector<std::size_t>{programs_.size()};
    };
    ASSERT_TRUE(desktop().waitUntil(captured, captureTimeout)) << tilwin_->log();
  }

  testing::AssertionResult stand(const Frames& frames, Milliseconds timeout) {
    const auto there = [&] {
      return std::ranges::all_of(frames, [&](const auto& each) {
        return desktop().waitForFrame(each.first, each.second, 1, Milliseconds{0});
      });
    };
    if (desktop().waitUntil(there, timeout)) return testing::AssertionSuccess();
    auto failure = testing::AssertionFailure();
    for (const auto& [window, frame] : frames) {
      failure << "expected " << text(frame) << ", saw " << text(desktop().frame(window).value_or(Rect()))
              << "\n";
    }
    return failure << tilwin_->log();
  }

  std::unique_ptr<Session> session_;
  std::vector<std::unique_ptr<RealApplication>> programs_;
  std::unique_ptr<TilwinProcess> tilwin_;
};

}  // namespace

TEST_F(ReturningDisplays, BringTheirWindowsBack) {
  begin({laptop, monitor});
  const auto docked = place({{100, 120, 640, 480}, {1500, 40, 800, 700}, {2500, 300, 600, 500}});
  startTilwinAndWaitForCapture();
  session_->server().unplug("DUMMY1");
  place({{30, 30, 600, 400}, {100, 100, 700, 600}, {300, 200, 500, 400}});
  session_->server().plug(monitor);
  EXPECT_TRUE(stand(docked, returnTimeout));
}

TEST_F(ReturningDisplays, OfOneModelLoseNothingWhenTheyAreSwapped) {
  begin(twins);
  const auto docked = place({{100, 120, 640, 480}, {2000, 40, 800, 700}, {2900, 300, 600, 500}});
  startTilwinAndWaitForCapture();
  session_->server().arrange(twinsSwapped);
  desktop().waitUntil([] { return false; }, noReturn);
  EXPECT_TRUE(stand(docked, Milliseconds{0}));

  session_->server().arrange(oneTwin);
  place({{30, 30, 600, 400}, {100, 100, 700, 600}, {300, 200, 500, 400}});
  session_->server().arrange(twinsSwapped);
  EXPECT_TRUE(stand(docked, returnTimeout));
}

}  // namespace tilwin::desktop
