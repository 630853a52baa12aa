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

/// What is pressed in one scene, and where the window should end.
struct Cue {
  std::string shortcut;
  std::string action;
  std::string chord;
  Rect expected;
};

/// Plays scenes on one session: presses, watches, takes the picture and keeps the result.
class Stage {
public:
  /// Pictures go into `folder`; the scenes are appended to `scenes`. All must outlive this.
  Stage(Session& session, std::filesystem::path folder, std::vector<Scene>& scenes);

  /// Gives the window the focus and the frame, so that the next scene starts from there.
  void set(const RealApplication& application, const Rect& frame);
  void play(const RealApplication& application, const Cue& cue);
  /// Drags the window by its title bar; one picture just before it is let go, with the preview, and one
  /// after.
  void drag(const RealApplication& application, const DragExample& example);

private:
  /// Waits for the window to stand right since that moment, and keeps the scene with its picture.
  void keep(const RealApplication& application, Scene scene, Clock::time_point since);
  [[nodiscard]] bool previews(const Rect& frame);
  [[nodiscard]] bool isRight(WindowId window, const Rect& expected);

  Session& session_;
  std::filesystem::path folder_;
  std::vector<Scene>& scenes_;
};

}  // namespace tilwin::desktop
