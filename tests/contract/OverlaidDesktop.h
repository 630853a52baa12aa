#pragma once

#include <gtest/gtest.h>

#include <QColor>
#include <optional>
#include <string>
#include <vector>

#include "platform/x11/overlay/X11Overlay.h"
#include "tests/contract/TestLogs.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::x11 {

/// A pixel of the screen and the colour it should have.
struct Spot {
  int x;
  int y;
  QRgb colour;
};

/// A real desktop with a background of one colour, and a program with an overlay.
class OverlaidDesktop {
public:
  static constexpr AccentColour accent{0x35, 0x84, 0xe4};
  static constexpr QRgb background = 0xff406030;
  static constexpr desktop::PixelSize screen{800, 600};

  OverlaidDesktop(desktop::Manager manager, bool compositing);

  /// One without a compositor, which serves all tests that change nothing of it.
  static OverlaidDesktop& plain() {
    static OverlaidDesktop desk(desktop::Manager::openbox, false);
    return desk;
  }

  desktop::Session& session() { return session_; }
  desktop::Desktop& desktop() { return session_.desktop(); }
  X11Overlay& overlay() { return *overlay_; }
  X11Connection& x() { return *x_; }

  /// Shows the overlay and waits until the server has processed it. Returns the overlay's window.
  desktop::WindowId show(const Rect& at);
  /// Fails unless all these pixels have their colours, after a compositor has had time to paint.
  void expect(const std::vector<Spot>& spots);

  /// How many children the root window has, visible or not.
  int windows();
  /// The overlay's window, if it is visible.
  std::optional<desktop::WindowId> sheetWindow();
  /// The child of the root window that covers the background.
  desktop::WindowId backgroundWindow() { return desktop().topLevel(background_->id()); }
  desktop::WindowId underPointer();

  /// Configured to give every window a shadow.
  desktop::ChildProcess startCompositor();
  void end(desktop::ChildProcess& compositor);

private:
  /// Describes the first pixel with a wrong colour; empty if there is none.
  std::string wrong(const std::vector<Spot>& spots);

  desktop::Session session_;
  std::optional<desktop::TestWindow> background_;
  FailingLog log_;
  std::optional<X11Connection> x_;
  std::optional<X11Overlay> overlay_;
};

/// An overlay on a desktop without a compositor.
class ShownOverlay : public testing::Test {
protected:
  void TearDown() override { desk_.overlay().hide(); }

  void expectClicksToReach(const desktop::TestWindow& window, desktop::PixelPoint at) {
    desk_.session().input().movePointer(at);
    EXPECT_EQ(desk_.underPointer(), desk_.desktop().topLevel(window.id()));
    desk_.session().input().click(at);
    EXPECT_TRUE(window.waitUntil([&] { return !window.recorded().buttons.empty(); }));
  }

  static constexpr Rect sheet{100, 80, 400, 300};

  OverlaidDesktop& desk_ = OverlaidDesktop::plain();
};

}  // namespace tilwin::x11
