#pragma once

#include <sys/types.h>

#include <array>
#include <optional>
#include <string>

#include "core/geometry/Rect.h"
#include "tests/desktop/harness/EventRecorder.h"
#include "tests/desktop/harness/XConnection.h"

namespace tilwin::desktop {

/// _NET_WM_WINDOW_TYPE (EWMH).
enum class WindowKind { normal, dialog, dock, desktop, utility, splash, notification };

/// The properties of a test's own window.
struct TestWindowOptions {
  std::string instance = "testwindow";
  std::string className = "TestWindow";
  std::string title = "Test window";
  /// The requested client area. With the default (north-west) gravity, the window manager puts the frame's
  /// corner, not the client's, at its position. If not `placed`, the window manager chooses the position.
  Rect area{200, 150, 640, 480};
  bool placed = true;
  WindowKind kind = WindowKind::normal;
  /// WM_NORMAL_HINTS (ICCCM 4.1.2.3): a size that is 0 is left out.
  PixelSize minimum = {};
  PixelSize maximum = {};
  PixelSize increment = {};
  PixelSize base = {};
  /// The only proportions it may have, as width and height.
  PixelSize aspect = {};
  xcb_gravity_t gravity = XCB_GRAVITY_NORTH_WEST;
  /// Minimum and maximum size are the requested size.
  bool fixedSize = false;
  WindowId transientFor = 0;
  /// _NET_WM_STRUT_PARTIAL, when any side is not 0 (docks), with its four inclusive spans.
  Extents strut = {};
  std::array<int, 8> strutSpans{};
  bool overrideRedirect = false;
  /// Supports WM_DELETE_WINDOW.
  bool acceptsDelete = true;
  /// Asks for no frame (_MOTIF_WM_HINTS), like clients that draw their own.
  bool undecorated = false;
  /// _GTK_FRAME_EXTENTS: an invisible border inside the client area.
  Extents shadow = {};
  /// Desktop entry ids, left out when empty: _GTK_APPLICATION_ID and _KDE_NET_WM_DESKTOP_FILE.
  std::string gtkApplicationId = {};
  std::string kdeDesktopFile = {};
  /// _NET_WM_PID; this process if not given.
  std::optional<pid_t> process = {};
  std::uint32_t colour = 0x3465a4;
};

/// A window of a simple client with its own connection. The constructor maps it and waits until it is
/// managed; the destructor destroys it.
class TestWindow {
public:
  /// Throws HarnessError if the window is not managed in time (if override-redirect or without a window
  /// manager: not viewable).
  explicit TestWindow(const std::string& display, const TestWindowOptions& options = {});

  WindowId id() const { return window_; }

  /// The events since the window was created or since the last forget().
  Recorded recorded() const { return recorder_.recorded(); }
  void forget() { recorder_.forget(); }
  bool hasFocus() const { return recorder_.focused(); }

  /// Waits until the predicate holds, evaluating it after each event of this window. Returns false on
  /// timeout.
  bool waitUntil(const Predicate& predicate, Milliseconds timeout = answerTimeout) const;
  /// Waits until no event has arrived for that long; returns false on timeout.
  bool settle(Milliseconds quiet = Milliseconds{150}, Milliseconds timeout = answerTimeout) const;

  /// Core requests of the client, which the window manager may redirect. They do not wait for an answer.
  void moveTo(PixelPoint position);
  void resizeTo(PixelSize size);
  void setTitle(const std::string& title);
  void unmap();
  void map();
  void destroy();

private:
  void waitUntilThere(bool overrideRedirect, WindowKind kind);
  void configure(std::uint16_t mask, std::uint32_t first, std::uint32_t second);

  XConnection connection_;
  WindowId window_;
  EventRecorder recorder_;
};

/// Creates the window that the options describe, with all its properties, without mapping it.
WindowId makeWindow(XConnection& connection, const TestWindowOptions& options);

void setWindowTitle(XConnection& connection, WindowId window, const std::string& title);

}  // namespace tilwin::desktop
