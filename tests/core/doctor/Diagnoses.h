#pragma once

#include <array>

#include "core/doctor/Diagnosis.h"

namespace tilwin {

inline constexpr HotKeySpec ctrlAltLeft{123, HotKeySpec::control | HotKeySpec::option};
inline constexpr HotKeySpec ctrlAltU{32, HotKeySpec::control | HotKeySpec::option};
inline constexpr std::array pcKeys = std::to_array<Wording::Word>(
    {{"⌃", "Ctrl+"}, {"⌥", "Alt+"}, {"⇧", "Shift+"}, {"⌘", "Super+"}, {"←", "Left"}});

/// A desktop on which nothing is wrong.
inline Diagnosis soundDiagnosis() {
  using State = ShortcutFacts::State;
  Diagnosis diagnosis{.isRunning = true, .wording = {.keys = pcKeys}};
  diagnosis.system.home = "/home/somebody";
  diagnosis.system.commands = SystemFacts::Commands::socket;
  diagnosis.desktop.manager = ManagerFacts{.runs = true, .name = "Openbox"};
  diagnosis.shortcuts = {{.keys = ctrlAltLeft, .action = "leftHalf", .state = State::works},
                         {.keys = ctrlAltU, .action = "topLeft", .state = State::works}};
  diagnosis.files = {{.what = "settings",
                      .path = "/home/somebody/.config/Tilwin/Tilwin.conf",
                      .exists = true,
                      .size = 120,
                      .mode = 0644}};
  return diagnosis;
}

}  // namespace tilwin
