#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "tests/app/RunningProgram.h"

namespace tilwin {

inline constexpr auto laptopAlone = "1440x900+0+0";
inline constexpr auto docked = "1440x900+0+0,2560x1440+1440+0";
inline constexpr Rect onDesk{1500, 100, 1200, 900};
inline constexpr Rect onLaptop{50, 50, 900, 700};

/// Days of a user who docks and undocks a laptop. Time is moved by hand; captures come every 20 seconds.
struct DisplayDays : RunningProgram {
  DisplayDays() : RunningProgram(docked) {}

  /// The user plugs or unplugs, and the desktop moves the window as it likes.
  void connect(std::string_view displays, const Rect& desktopMovesItTo) {
    desktop.setDisplays(displays);
    desktop.windows.moveByHand(editor, desktopMovesItTo);
    desktop.time.runDue();
  }
  void passes(MainQueue::Seconds time) { desktop.time.advance(time); }
  Rect frame() { return desktop.windows.find(editor)->frame; }
  [[nodiscard]] std::size_t automaticLayouts() const { return savedLayouts().layouts.size(); }
  void change(bool restoring) { RunningProgram::change({.restoreOnDisplayChange = restoring}); }
  /// A layout file written by another hand, to see whether the program writes again.
  void scribble() { std::ofstream(layoutsFile()) << "scribbled"; }
  [[nodiscard]] bool isScribbled() const {
    std::ifstream file(layoutsFile());
    std::string text;
    return std::getline(file, text) && text == "scribbled";
  }

  SimulatedWindows::Handle editor = desktop.windows.open({.frame = onDesk});
};

}  // namespace tilwin
