#pragma once

#include "platform/ports/Screens.h"
#include "platform/ports/Workspace.h"
#include "platform/simulated/SimulatedAccessibility.h"

namespace tilwin {

/// Screens set by a test.
class SimulatedScreens final : public Screens {
public:
  std::vector<Screen> connected{};

  std::vector<Screen> screens() override { return connected; }
};

/// Running programs set by a test.
class SimulatedWorkspace final : public Workspace {
public:
  std::optional<RunningApplication> frontmost{};
  std::vector<RunningApplication> running{};
  std::optional<std::string> own = "org.example.Tilwin";

  std::optional<RunningApplication> frontmostApplication() override { return frontmost; }
  std::vector<RunningApplication> runningApplications() override { return running; }
  std::optional<std::string> ownBundleIdentifier() override { return own; }
};

/// A window with the attributes that an ordinary program gives it; the frame is in points.
struct AccessibleWindow {
  std::string title = "Untitled";
  Rect frame{100, 100, 800, 600};
  std::optional<std::string> subrole = "AXStandardWindow";
  bool isMinimized = false;
  Size least{};  ///< programs cannot make it smaller
};

/// A desktop whose windows are accessible through a tree of elements, as on macOS. A test uses these
/// functions for what users and programs normally do, and changes `tree`, `workspace` and `screens` directly
/// for unusual states.
class SimulatedAccessibleDesktop {
public:
  using Node = SimulatedAccessibility::Node;

  SimulatedAccessibility tree{};
  SimulatedWorkspace workspace{};
  SimulatedScreens screens{};

  /// Starts a program without activating it. Chooses a process id if it is 0. Returns the process id.
  std::int32_t launch(RunningApplication application);
  /// Gives the program the keyboard focus.
  void activate(std::int32_t processID);
  /// Opens a window in front of the program's others and focuses it within the program, unless minimised.
  Node open(std::int32_t processID, const AccessibleWindow& window = {});
  /// Closes the window. The program's next window that is not minimised gets the focus within the program.
  void close(Node window);
  /// Restores the window if it is minimised, brings it to the front and activates its program.
  void focus(Node window);
  void minimize(Node window);
  /// The user moves the window, which also brings it to the front.
  void place(Node window, const Rect& frame);
  /// The frame of the window; nothing if it is not open.
  [[nodiscard]] std::optional<Rect> standing(Node window) const;
  /// Adds an element inside another, such as a button inside a window. It covers no area.
  Node nest(Node inside, std::string_view role = "AXGroup");

private:
  struct Opened {
    Node node = 0;
    std::int32_t processID = 0;
  };

  [[nodiscard]] std::int32_t processOf(Node window) const;
  [[nodiscard]] bool isMinimized(Node window) const;
  void raise(Node window);
  void showWindows(std::int32_t processID);

  std::vector<Opened> stack_;  ///< the front one first
  std::int32_t lastProcess_ = 100;
};

}  // namespace tilwin
