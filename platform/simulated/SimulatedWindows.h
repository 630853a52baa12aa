#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/geometry/DisplayInfo.h"
#include "core/geometry/Rect.h"

namespace tilwin {

/// A window of some application, and how it responds to requests to move it. Lengths are points.
struct SimulatedWindow {
  enum class Answer {
    obeys,    ///< takes the requested frame, within its size limits
    ignores,  ///< accepts the request but does not change
    refuses,  ///< refuses the request
  };

  std::string bundleID = "org.example.Editor";
  std::string appName = "Editor";
  std::string title = "Untitled";
  Rect frame{100, 100, 800, 600};
  double minimumWidth = 1;
  double minimumHeight = 1;
  double widthStep = 1;  ///< the width is a multiple of this, like the cell width of a terminal
  double heightStep = 1;
  bool isStandard = true;  ///< not a dialog, panel or menu
  bool isOfThisProgram = false;
  bool isMinimized = false;
  bool isMaximized = false;
  bool vanishesOnceSeen = false;  ///< closes as soon as the program has read it
  Answer answer = Answer::obeys;
};

/// The space that panels and docks reserve at a display's edges, in points.
struct Struts {
  double left = 0;
  double right = 0;
  double top = 0;
  double bottom = 0;
};

/// The displays, windows and window manager of a simulated desktop. A test opens and changes windows as a
/// user or another program would; requests to move them go through `request`. Functions ignore the handle of
/// a window that is not open.
class SimulatedWindows {
public:
  using Handle = std::int64_t;

  explicit SimulatedWindows(std::vector<DisplayInfo> displays);

  [[nodiscard]] const std::vector<DisplayInfo>& displays() const { return displays_; }
  /// Called after the displays or the struts of one have changed.
  std::function<void()> onDisplaysChanged;
  /// Replaces the displays. Windows keep their frames, even if no display shows them.
  void setDisplays(std::vector<DisplayInfo> displays);
  /// Makes the display's visible frame its frame without these struts. Returns false if the display does not
  /// exist.
  bool reserve(std::uint32_t displayID, const Struts& struts);

  /// Opens a window in front of the others. It gets the focus unless it is minimised.
  Handle open(SimulatedWindow window);
  /// Closes the window; if it had the focus, the front window gets it.
  void close(Handle handle);
  /// Restores the window if it is minimised, brings it to the front and gives it the focus.
  void focus(Handle handle);
  void unfocus() { setFocused(std::nullopt); }
  void minimize(Handle handle);
  /// Gives the window the visible frame of its display.
  void maximize(Handle handle);
  /// Gives the window the frame it had before it was maximised.
  void unmaximize(Handle handle);
  /// The user moves or resizes the window with the mouse; size limits do not apply.
  void moveByHand(Handle handle, const Rect& frame);

  /// A program requests a new frame. Returns whether the request was accepted; the resulting frame depends on
  /// the window's `answer`, size limits and state.
  bool request(Handle handle, const Rect& frame);
  /// The number of requests so far, accepted or not.
  [[nodiscard]] std::uint64_t requestCount() const { return requestCount_; }

  /// The window; null if it is not open. Valid until the window is closed.
  [[nodiscard]] SimulatedWindow* find(Handle handle);
  [[nodiscard]] std::optional<Handle> focused() const { return focused_; }
  /// The window of another program that has the focus, or had it last.
  [[nodiscard]] std::optional<Handle> lastFocused() const { return lastFocused_; }
  /// All open windows, the front one first.
  [[nodiscard]] const std::vector<Handle>& stack() const { return stack_; }

private:
  [[nodiscard]] const DisplayInfo& displayOf(const Rect& frame) const;
  void raise(Handle handle);
  void focusFront();
  void setFocused(std::optional<Handle> handle);

  std::vector<DisplayInfo> displays_;
  std::unordered_map<Handle, SimulatedWindow> windows_;
  std::unordered_map<Handle, Rect> beforeMaximizing_;
  std::vector<Handle> stack_;
  std::optional<Handle> focused_;
  std::optional<Handle> lastFocused_;
  Handle lastHandle_ = 0;
  std::uint64_t requestCount_ = 0;
};

}  // namespace tilwin
