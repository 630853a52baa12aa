#include "core/doctor/DoctorReport.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "core/doctor/DoctorTexts.h"
#include "core/doctor/KnownManagers.h"
#include "core/doctor/Problems.h"
#include "core/geometry/GeometryText.h"
#include "core/support/ListText.h"
#include "core/support/TextTable.h"

namespace tilwin {
namespace {

using Names = DoctorReport::Names;
using Rows = std::vector<TableRow>;

std::string yesOrNo(bool is) { return is ? "yes" : "no"; }

std::string sizeText(const Size& size) {
  return decimalText(size.width, 0) + "x" + decimalText(size.height, 0);
}

std::string sidesText(const Sides& sides) {
  std::string text;
  for (const double width : {sides.left, sides.right, sides.top, sides.bottom})
    text += (text.empty() ? "" : " ") + decimalText(width, 0);
  return text;
}

Rows versionRows(const Diagnosis& diagnosis, Names) {
  Rows rows;
  for (const auto* facts : {&diagnosis.system.versions, &diagnosis.desktop.versions}) {
    for (const NamedFact& fact : *facts) rows.push_back({fact.name, fact.value});
  }
  if (!diagnosis.system.session.empty()) rows.push_back({"Session", diagnosis.system.session});
  return rows;
}

std::string obeyed(const ManagerFacts& manager) {
  static constexpr std::array<std::string_view, 3> words{"not tried yet", "yes", "no"};
  return std::string(words[static_cast<std::size_t>(manager.obeys)]);
}

Rows managerRows(const Diagnosis& diagnosis, Names) {
  const auto& manager = diagnosis.desktop.manager;
  if (!manager) return {};
  Rows rows{{"Announces itself", yesOrNo(manager->runs)}};
  if (!manager->runs) return rows;
  const auto known = KnownManagers::named(manager->name);
  rows.push_back({"Calls itself", manager->name.empty() ? "nothing" : manager->name});
  for (const auto& feature : manager->features)
    rows.push_back({feature.name, feature.isListed ? "listed" : "not listed"});
  rows.push_back({"Obeys " + manager->message, obeyed(*manager)});
  rows.push_back({"Moved by", manager->way});
  rows.push_back({"Places", manager->placesClient ? "the client area" : "the frame"});
  rows.push_back({"Refused a window", yesOrNo(manager->refusesWindow)});
  const bool mayTile = !known.tilesUntil.empty();
  rows.push_back({"Tiles itself", manager->tilesItself ? "yes"
                                  : mayTile
                                      ? "not seen; it does at first, see " + std::string(known.tilesUntil)
                                      : "not seen"});
  return rows;
}

Rows displayRows(const Diagnosis& diagnosis, Names) {
  Rows rows;
  for (const DisplayInfo& display : DisplayOrder::sorted(diagnosis.displays)) {
    rows.push_back({std::to_string(rows.size()), geometryText(display.frame),
                    "free " + geometryText(display.visibleFrame), display.isPrimary ? "primary" : ""});
  }
  if (const auto scale = diagnosis.desktop.scale) rows.push_back({"scale", decimalText(*scale, 2)});
  return rows;
}

std::string limitsText(const WindowFacts& window) {
  std::string text = "least " + sizeText(window.least);
  if (window.most) text += ", most " + sizeText(*window.most);
  if (window.step) text += ", steps " + sizeText(*window.step);
  return text + (window.keepsProportions ? ", fixed proportions" : "");
}

Rows windowRows(const Diagnosis& diagnosis, Names names) {
  Rows rows;
  for (const WindowFacts& window : diagnosis.desktop.windows) {
    TableRow row{window.kind + (window.isOwn ? " (Tilwin's)" : ""),
                 geometryText(window.frame),
                 "frame " + sidesText(window.decoration),
                 window.shadow ? "draws its own, shadow " + sidesText(*window.shadow) : "",
                 limitsText(window),
                 joined(window.states, ", ")};
    if (names == Names::all) row.push_back(window.application + ": " + window.title);
    rows.push_back(std::move(row));
  }
  return rows;
}

std::string ownerText(const ShortcutFacts& shortcut, Names names) {
  if (!shortcut.action.empty()) return shortcut.action;
  return names == Names::all ? "area \"" + shortcut.area + "\"" : "an area";
}

Rows shortcutRows(const Diagnosis& diagnosis, Names names) {
  using State = ShortcutFacts::State;
  static constexpr std::array<std::string_view, 4> words{"not asked for", "works", "refused", "used earlier"};
  const auto working = std::ranges::count(diagnosis.shortcuts, State::works, &ShortcutFacts::state);
  Rows rows{{std::to_string(working) + " of " + std::to_string(diagnosis.shortcuts.size()) + " work"}};
  if (!diagnosis.isRunning) rows.front().front() = std::to_string(diagnosis.shortcuts.size()) + " are set";
  for (const ShortcutFacts& shortcut : diagnosis.shortcuts) {
    if (shortcut.state == State::works || shortcut.state == State::unknown) continue;
    rows.push_back({DoctorTexts::keys(shortcut.keys, diagnosis.wording), ownerText(shortcut, names),
                    std::string(words[static_cast<std::size_t>(shortcut.state)])});
  }
  return rows;
}

/// When the manager answered the request that was made during the press.
std::string answerText(const Diagnosis& diagnosis, const PressFacts& press) {
  for (const MoveTimes& move : diagnosis.desktop.moves) {
    if (move.asked < press.received || move.asked > press.done) continue;
    return move.answered ? "answered after " + DoctorTexts::milliseconds(*move.answered - press.received)
                         : "not answered";
  }
  return "nothing was asked for";
}

Rows pressRows(const Diagnosis& diagnosis, Names) {
  Rows rows;
  for (const PressFacts& press : diagnosis.presses) {
    rows.push_back({press.action.empty() ? "an area" : press.action,
                    "asked after " + DoctorTexts::milliseconds(press.done - press.received),
                    answerText(diagnosis, press)});
  }
  if (rows.empty()) rows.push_back({diagnosis.isRunning ? "none yet" : "not known: Tilwin is not running"});
  return rows;
}

Rows fileRows(const Diagnosis& diagnosis, Names) {
  Rows rows;
  for (const FileFacts& file : diagnosis.files) {
    TableRow row{file.what, DoctorTexts::path(file.path, diagnosis.system.home)};
    if (!file.exists) {
      row.emplace_back("not there");
    } else {
      row.insert(row.end(), {std::to_string(file.size) + " bytes", "mode " + DoctorTexts::mode(file.mode)});
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

struct Section {
  std::string_view title;
  Rows (*rows)(const Diagnosis& diagnosis, Names names);
};

constexpr std::array sections = std::to_array<Section>({
    {"Versions", versionRows},
    {"Window manager", managerRows},
    {"Displays", displayRows},
    {"Windows (frame and shadow: left, right, top, bottom)", windowRows},
    {"Shortcuts", shortcutRows},
    {"Last presses", pressRows},
    {"Files", fileRows},
});

}  // namespace

std::string DoctorReport::text(const Diagnosis& diagnosis, Names names) {
  std::string text;
  for (const std::string& problem : Problems::of(diagnosis)) text += problem + "\n";
  if (text.empty()) text = "Nothing is wrong that Tilwin can see.\n";
  for (const Section& section : sections) {
    const auto rows = section.rows(diagnosis, names);
    if (!rows.empty()) text += "\n" + std::string(section.title) + "\n" + textTable(rows, "  ");
  }
  return text;
}

}  // namespace tilwin
