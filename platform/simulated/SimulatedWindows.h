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

/// A window of some application, and how it takes being moved.
struct SimulatedWindow {
  enum class Answer {
    obeys,    ///< goes where it is asked to, as far as its size allows
    ignores,  ///< takes the request and stays
    refuses,  ///< turns the request down
  };

  std::string bundleID = "org.example.Editor";
  std::string appName = "Editor";
  std::string title = "Untitled";
  Rect frame{100, 100, 800, 600};
  double minimumWidth = 1;
  double minimumHeight = 1;
  double widthStep = 1;  ///< the width is always a whole multiple of this, as of a terminal's character cell
  double heightStep = 1;
  bool isStandard = true;  ///< not a dialog, a panel, a menu
  bool isOfThisProgram = false;
  bool isMinimized = false;
  bool isMaximized = false;
  bool vanishesOnceSeen = false;  ///< closes as soon as the program has been told of it
  Answer answer = Answer::obeys;
};

/// What bars and docks take from a display's edges, in points.
struct Struts {
  double left = 0;
  double right = 0;
  double top = 0;
  double bottom = 0;
};

/// The displays and windows of a simulated desktop, with its window manager: what a user or another program
/// does to them, and how requests to move are answered.
class SimulatedWindows {
public:
  using Handle = std::int64_t;

  explicit SimulatedWindows(std::vector<DisplayInfo> displays);

  [[nodiscard]] const std::vector<DisplayInfo>& displays() const { return displays_; }
  /// Told once displays, or the struts on one, have changed.
  std::function<void()> onDisplaysChanged;
  /// Windows stay where they are, on a display or not.
  void setDisplays(std::vector<DisplayInfo> displays);
  /// Takes the struts off the display's visible frame. False when there is no such display.
  bool reserve(std::uint32_t displayID, const Struts& struts);

  /// The new window is in front and has the focus, unless it is minimised.
  Handle open(SimulatedWindow window);
  void close(Handle handle);
  /// Brings the window to the front, out of the minimised state, and gives it the focus.
  void focus(Handle handle);
  void unfocus() { focused_.reset(); }
  void minimize(Handle handle);
  void maximize(Handle handle);
  void unmaximize(Handle handle);
  /// The user drags the window or its edges.
  void moveByHand(Handle handle, const Rect& frame);

  /// A program asks for a new frame. True when the request was taken; where the window then stands depends on
  /// its size limits and its state.
  bool request(Handle handle, const Rect& frame);
  /// How many requests to move have come, taken or not.
  [[nodiscard]] std::uint64_t requestCount() const { return requestCount_; }

  /// Null when it is not open.
  [[nodiscard]] SimulatedWindow* find(Handle handle);
  [[nodiscard]] std::optional<Handle> focused() const { return focused_; }
  /// Every open window, the front one first.
  [[nodiscard]] const std::vector<Handle>& stack() const { return stack_; }

private:
  [[nodiscard]] const DisplayInfo& displayOf(const Rect& frame) const;
  void raise(Handle handle);
  void focusFront();

  std::vector<DisplayInfo> displays_;
  std::unordered_map<Handle, SimulatedWindow> windows_;
  std::unordered_map<Handle, Rect> beforeMaximizing_;
  std::vector<Handle> stack_;
  std::optional<Handle> focused_;
  Handle lastHandle_ = 0;
  std::uint64_t requestCount_ = 0;
};

}  // namespace tilwin
