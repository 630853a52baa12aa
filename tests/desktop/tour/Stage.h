#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "tests/desktop/DragZones.h"
#include "tests/desktop/harness/RealApplication.h"
#include "tests/desktop/harness/Session.h"
#include "tests/desktop/tour/Scene.h"

namespace tilwin::desktop {

/// What is pressed in one scene, and the expected frame of the window.
struct Cue {
  std::string shortcut;
  std::string action;
  std::string chord;
  Rect expected;
};

/// Performs scenes in one session: presses, observes, takes a screenshot and records the result.
class Stage {
public:
  /// Pictures go into `folder`; the scenes are appended to `scenes`. All must outlive this.
  Stage(Session& session, std::filesystem::path folder, std::vector<Scene>& scenes);

  /// Focuses the window and puts it at the frame from which the next scene starts.
  void set(const RealApplication& application, const Rect& frame);
  void play(const RealApplication& application, const Cue& cue);
  /// Drags the window by its title bar. Takes one screenshot with the preview, just before the release, and
  /// one after.
  void drag(const RealApplication& application, const DragExample& example);
  /// Waits until the window has the expected frame, and records the scene with its screenshot. `scene` has
  /// what was done, and in `right` whether it went as it should until then.
  void keep(const RealApplication& application, Scene scene, Clock::time_point since);
  [[nodiscard]] bool isRight(WindowId window, const Rect& expected);

private:
  [[nodiscard]] bool previews(const Rect& frame);

  Session& session_;
  std::filesystem::path folder_;
  std::vector<Scene>& scenes_;
};

}  // namespace tilwin::desktop
