#pragma once

#include "platform/ports/Screens.h"
#include "platform/ports/Workspace.h"
#include "platform/simulated/SimulatedAccessibility.h"

namespace tilwin {

/// Screens as whoever plays the user connects them.
class SimulatedScreens final : public Screens {
public:
  std::vector<Screen> connected{};

  std::vector<Screen> screens() override { return connected; }
};

/// Running programs as whoever plays the user lists them.
class SimulatedWorkspace final : public Workspace {
public:
  std::optional<RunningApplication> frontmost{};
  std::vector<RunningApplication> running{};
  std::optional<std::string> own = "org.example.Tilwin";

  std::optional<RunningApplication> frontmostApplication() override { return frontmost; }
  std::vector<RunningApplication> runningApplications() override { return running; }
  std::optional<std::string> ownBundleIdentifier() override { return own; }
};

/// A window as an ordinary program shows it to accessibility.
struct AccessibleWindow {
  std::string title = "Untitled";
  Rect frame{100, 100, 800, 600};
  std::optional<std::string> subrole = "AXStandardWindow";
  bool isMinimized = false;
};

/// A desktop whose programs show their windows by accessibility: a tree kept the way macOS keeps it. What is
/// out of the ordinary is done to `tree`, `workspace` and `screens` themselves.
class SimulatedAccessibleDesktop {
public:
  using Node = SimulatedAccessibility::Node;

  SimulatedAccessibility tree{};
  SimulatedWorkspace workspace{};
  SimulatedScreens screens{};

  /// Starts a program behind the others; its process id is chosen when it is 0. Returns that id.
  std::int32_t launch(RunningApplication application);
  /// Gives the program the keys.
  void activate(std::int32_t processID);
  /// Opens a window in front of the program's others and focuses it within the program, unless minimised.
  Node open(std::int32_t processID, const AccessibleWindow& window = {});
  /// The program's next window that is not minimised, if any, has its focus.
  void close(Node window);
  /// Brings the window out of the minimised state and to the front, and its program with it.
  void focus(Node window);
  void minimize(Node window);
  /// The user moves the window; it is found under points of the new frame.
  void place(Node window, const Rect& frame);
  /// Nothing when the window is not open.
  [[nodiscard]] std::optional<Rect> standing(Node window) const;
  /// An element inside another, as a button is inside its window; it covers no area.
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
