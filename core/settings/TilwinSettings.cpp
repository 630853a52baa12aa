#include "core/settings/TilwinSettings.h"

#include <algorithm>
#include <array>

namespace tilwin {
namespace {

constexpr std::uint32_t controlOption = HotKeySpec::control | HotKeySpec::option;
constexpr std::uint32_t controlOptionCommand = controlOption | HotKeySpec::cmd;
constexpr std::uint32_t controlOptionShift = controlOption | HotKeySpec::shift;

// clang-format off
constexpr std::array defaultShortcuts = std::to_array<TilwinSettings::DefaultShortcut>({
    {SnapAction::leftHalf, {123, controlOption}},  // left arrow
    {SnapAction::rightHalf, {124, controlOption}},  // right arrow
    {SnapAction::topHalf, {126, controlOption}},  // up arrow
    {SnapAction::bottomHalf, {125, controlOption}},  // down arrow
    {SnapAction::topLeft, {32, controlOption}},  // U
    {SnapAction::topRight, {34, controlOption}},  // I
    {SnapAction::bottomLeft, {38, controlOption}},  // J
    {SnapAction::bottomRight, {40, controlOption}},  // K
    {SnapAction::leftThird, {2, controlOption}},  // D
    {SnapAction::centerThird, {3, controlOption}},  // F
    {SnapAction::rightThird, {5, controlOption}},  // G
    {SnapAction::leftTwoThirds, {14, controlOption}},  // E
    {SnapAction::rightTwoThirds, {17, controlOption}},  // T
    {SnapAction::maximize, {36, controlOption}},  // Return
    {SnapAction::almostMaximize, {24, controlOption}},  // =
    {SnapAction::center, {8, controlOption}},  // C
    {SnapAction::restore, {51, controlOption}},  // Delete/backspace
    {SnapAction::nextDisplay, {124, controlOptionCommand}},  // right arrow
    {SnapAction::previousDisplay, {123, controlOptionCommand}},  // left arrow
    {SnapAction::firstFourth, {18, controlOption}},  // 1
    {SnapAction::secondFourth, {19, controlOption}},  // 2
    {SnapAction::thirdFourth, {20, controlOption}},  // 3
    {SnapAction::lastFourth, {21, controlOption}},  // 4
    {SnapAction::leftThreeFourths, {123, controlOptionShift}},  // left arrow
    {SnapAction::rightThreeFourths, {124, controlOptionShift}},  // right arrow
    {SnapAction::maximizeHeight, {126, controlOptionShift}},  // up arrow
    {SnapAction::maximizeWidth, {125, controlOptionShift}},  // down arrow
    {SnapAction::larger, {24, controlOptionShift}},  // =
    {SnapAction::smaller, {27, controlOptionShift}},  // -
});
// clang-format on

double clampedDistance(double points) {
  return points >= 0 ? std::min(points, TilwinSettings::largestDistance) : 0;
}

std::string keyOf(SnapAction action) { return std::string(SnapActions::rawValue(action)); }

}  // namespace

std::span<const TilwinSettings::DefaultShortcut> TilwinSettings::defaults() { return defaultShortcuts; }

std::optional<HotKeySpec> TilwinSettings::shortcut(SnapAction action) const {
  const std::string key = keyOf(action);
  if (disabled.contains(key)) return std::nullopt;
  if (const auto override = shortcuts.find(key); override != shortcuts.end()) return override->second;
  const auto builtIn = std::find_if(defaultShortcuts.begin(), defaultShortcuts.end(),
                                    [&](const DefaultShortcut& row) { return row.action == action; });
  if (builtIn == defaultShortcuts.end()) return std::nullopt;
  return builtIn->spec;
}

std::optional<HotKeySpec> TilwinSettings::shortcut(const ShortcutOwner& owner) const {
  if (const auto* action = std::get_if<SnapAction>(&owner)) return shortcut(*action);
  const auto area = std::ranges::find(customAreas, std::get<Uuid>(owner), &CustomArea::id);
  return area == customAreas.end() ? std::nullopt : area->shortcut;
}

std::vector<std::pair<ShortcutOwner, HotKeySpec>> TilwinSettings::shortcutsInForce() const {
  std::vector<std::pair<ShortcutOwner, HotKeySpec>> result;
  for (const SnapAction action : SnapActions::all()) {
    if (const auto spec = shortcut(action)) result.emplace_back(action, *spec);
  }
  for (const CustomArea& area : customAreas) {
    if (area.shortcut) result.emplace_back(area.id, *area.shortcut);
  }
  return result;
}

bool TilwinSettings::hasCustomShortcut(SnapAction action) const { return shortcuts.contains(keyOf(action)); }

std::optional<ShortcutRules::Problem> TilwinSettings::assign(const HotKeySpec& spec, SnapAction to) {
  auto problem = ShortcutRules::problem(spec, to, *this);
  if (problem) return problem;
  shortcuts[keyOf(to)] = spec;
  disabled.erase(keyOf(to));
  return std::nullopt;
}

std::optional<ShortcutRules::Problem> TilwinSettings::assign(const HotKeySpec& spec, const Uuid& toArea) {
  auto problem = ShortcutRules::problem(spec, toArea, *this);
  if (problem) return problem;
  const auto area = std::find_if(customAreas.begin(), customAreas.end(),
                                 [&](const CustomArea& each) { return each.id == toArea; });
  if (area != customAreas.end()) area->shortcut = spec;
  return std::nullopt;
}

void TilwinSettings::resetShortcut(SnapAction action) {
  shortcuts.erase(keyOf(action));
  disabled.erase(keyOf(action));
}

void TilwinSettings::clearShortcut(SnapAction action) {
  shortcuts.erase(keyOf(action));
  disabled.insert(keyOf(action));
}

void TilwinSettings::clamp() {
  gap = clampedDistance(gap);
  outer = clampedDistance(outer);
  if (customAreas.size() > maximumAreas) customAreas.resize(maximumAreas);
  for (CustomArea& area : customAreas) {
    area.name = CustomArea::keptName(area.name);
    area.rect = CustomArea::clamped(area.rect);
  }
}

}  // namespace tilwin
