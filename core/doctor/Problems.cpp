#include "core/doctor/Problems.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

#include "core/doctor/DoctorTexts.h"
#include "core/doctor/KnownManagers.h"
#include "core/doctor/ShortcutProblems.h"

namespace tilwin {
namespace {

using Texts = std::vector<std::string>;

constexpr std::uint32_t writableByOthers = 0022;
constexpr std::uint32_t openToOthers = 0077;

Texts whatDoesNotRun(const Diagnosis& diagnosis) {
  Texts problems;
  const auto& manager = diagnosis.desktop.manager;
  const bool maybeWaits = manager && !manager->runs;  // until then it takes no commands
  if (!diagnosis.isRunning && diagnosis.system.commands == SystemFacts::Commands::noFolder) {
    problems.emplace_back("Tilwin is not running, or cannot be asked: there is no runtime folder.");
  } else if (!diagnosis.isRunning && maybeWaits) {
    problems.emplace_back("Tilwin is not running, or waits for a window manager, so no shortcut works.");
  } else if (!diagnosis.isRunning) {
    problems.emplace_back("Tilwin is not running, so no shortcut works: start it with \"tilwin\".");
  }
  if (!diagnosis.mayMoveWindows) {
    problems.emplace_back(
        "Tilwin is not allowed to move windows: allow it under Accessibility in the settings of your "
        "desktop.");
  }
  return problems;
}

Texts sessionProblems(const Diagnosis& diagnosis) {
  if (!diagnosis.system.isWayland) return {};
  return {
      "This is a Wayland session, in which Tilwin can move only the windows of programs that use X11: log in "
      "to a session on X11 (Xorg)."};
}

Texts managerProblems(const Diagnosis& diagnosis) {
  const auto& manager = diagnosis.desktop.manager;
  if (!manager) return {};
  if (!manager->runs) {
    return {
        "No window manager runs that announces itself as EWMH requires, so no window can be moved: start "
        "one."};
  }
  Texts problems;
  if (manager->refusesWindow) {
    problems.emplace_back(
        "The window manager does not let some window be moved: let that window float there.");
  }
  if (manager->tilesItself) {
    const auto known = KnownManagers::named(manager->name);
    const std::string place = known.tilesUntil.empty() ? "its settings" : std::string(known.tilesUntil);
    problems.push_back((known.name.empty() ? "The window manager" : std::string(known.name)) +
                       " tiles windows at the edges itself, so two previews may be shown: turn that off in " +
                       place + ".");
  }
  return problems;
}

Texts tilingProblems(const Diagnosis& diagnosis) {
  if (!diagnosis.tilesAtEdgesToo) return {};
  return {diagnosis.wording.text("macOS") + " tiles windows at the edges itself: " +
          diagnosis.wording.text("Turn off “Drag windows to screen edges to tile” in Desktop & Dock") + "."};
}

Texts commandProblems(const Diagnosis& diagnosis) {
  if (diagnosis.system.commands != SystemFacts::Commands::noFolder) return {};
  return {
      "There is no runtime folder (XDG_RUNTIME_DIR), so \"tilwin\" reaches the running Tilwin by the session "
      "bus "
      "alone: log in by a session that has one."};
}

bool isPlain(char each) {
  return (each >= 'a' && each <= 'z') || (each >= 'A' && each <= 'Z') || (each >= '0' && each <= '9') ||
         std::string_view("._/-").find(each) != std::string_view::npos;
}

/// In single quotes if a shell needs them; the tilde stays outside.
std::string forShell(const std::string& path) {
  const std::string home = path.starts_with("~/") ? "~/" : "";
  const std::string rest = path.substr(home.size());
  if (std::ranges::all_of(rest, isPlain)) return path;
  std::string quoted;
  for (const char each : rest) quoted += each == '\'' ? "'\\''" : std::string(1, each);
  return home + "'" + quoted + "'";
}

Texts fileProblems(const Diagnosis& diagnosis) {
  Texts problems;
  for (const FileFacts& file : diagnosis.files) {
    if (!file.exists) continue;
    const std::string path = DoctorTexts::path(file.path, diagnosis.system.home);
    const bool isWritable = (file.mode & writableByOthers) != 0;
    if (isWritable || (file.isPrivate && (file.mode & openToOthers) != 0)) {
      problems.push_back("Others can " + std::string(isWritable ? "change" : "read") + " " + path +
                         " (mode " + DoctorTexts::mode(file.mode) + "): chmod 600 " + forShell(path));
    }
    if (!file.isReadable)
      problems.push_back("You cannot read " + path + ": make it your own file, or move it away.");
  }
  return problems;
}

Texts settingsProblems(const Diagnosis& diagnosis) {
  if (!diagnosis.areSettingsUnreadable) return {};
  return {
      "The settings that are stored cannot be read, so all have their defaults: mend the file, or move it "
      "away "
      "and choose anew."};
}

Texts iconProblems(const Diagnosis& diagnosis) {
  if (diagnosis.isIconShown.value_or(true)) return {};
  return {
      "No panel shows Tilwin's icon: add a status tray to your panel (on GNOME, an extension for "
      "AppIndicators), or open the settings with \"tilwin settings\"."};
}

constexpr std::array inspections{whatDoesNotRun,   sessionProblems,  managerProblems,
                                 settingsProblems, shortcutProblems, commandProblems,
                                 fileProblems,     tilingProblems,   iconProblems};

}  // namespace

std::vector<std::string> Problems::of(const Diagnosis& diagnosis) {
  Texts all;
  for (const auto inspection : inspections) std::ranges::move(inspection(diagnosis), std::back_inserter(all));
  return all;
}

}  // namespace tilwin
