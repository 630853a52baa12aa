#include "core/settings/ShortcutRules.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/settings/TilwinSettings.h"

namespace tilwin {
namespace {

constexpr std::uint32_t command = HotKeySpec::cmd;
constexpr std::uint32_t control = HotKeySpec::control;
constexpr std::uint32_t commandOption = HotKeySpec::cmd | HotKeySpec::option;
constexpr std::uint32_t controlCommand = HotKeySpec::control | HotKeySpec::cmd;
constexpr std::uint32_t commandShift = HotKeySpec::cmd | HotKeySpec::shift;

constexpr std::array reservedShortcuts = std::to_array<ShortcutRules::Reserved>({
    {{49, command}, "Spotlight (Command-Space)"},
    {{49, control}, "Input source (Control-Space)"},
    {{49, commandOption}, "Finder search (Command-Option-Space)"},
    {{48, command}, "App switcher (Command-Tab)"},
    {{50, command}, "Switch windows (Command-`)"},
    {{12, command}, "Quit (Command-Q)"},
    {{13, command}, "Close window (Command-W)"},
    {{4, command}, "Hide (Command-H)"},
    {{46, command}, "Minimize (Command-M)"},
    {{53, commandOption}, "Force Quit (Command-Option-Escape)"},
    {{12, controlCommand}, "Lock screen (Control-Command-Q)"},
    {{20, commandShift}, "Screenshot (Command-Shift-3)"},
    {{21, commandShift}, "Screenshot (Command-Shift-4)"},
    {{23, commandShift}, "Screenshot (Command-Shift-5)"},
    {{126, control}, "Mission Control (Control-Up)"},
    {{125, control}, "App Exposé (Control-Down)"},
    {{123, control}, "Move a Space left (Control-Left)"},
    {{124, control}, "Move a Space right (Control-Right)"},
});

/// F1 to F12. They need no modifier because they type no text.
constexpr std::array<std::uint32_t, 12> functionKeys{122, 120, 99, 118, 96, 97, 98, 100, 101, 109, 103, 111};

bool isFunctionKey(std::uint32_t keyCode) {
  return std::find(functionKeys.begin(), functionKeys.end(), keyCode) != functionKeys.end();
}

bool hasAny(const HotKeySpec& spec, std::uint32_t modifiers) { return (spec.modifiers & modifiers) != 0; }

/// The title or name of another owner that already has the shortcut.
std::optional<std::string> holder(const HotKeySpec& spec, const ShortcutOwner& owner,
                                  const TilwinSettings& settings) {
  for (const SnapAction action : SnapActions::all()) {
    if (owner == ShortcutOwner(action)) continue;
    if (settings.shortcut(action) == spec) return std::string(SnapActions::title(action));
  }
  for (const CustomArea& area : settings.customAreas) {
    if (owner == ShortcutOwner(area.id)) continue;
    if (area.shortcut == spec) return area.name;
  }
  return std::nullopt;
}

std::string nameOf(const ShortcutOwner& owner, const TilwinSettings& settings) {
  if (const auto* action = std::get_if<SnapAction>(&owner)) return std::string(SnapActions::title(*action));
  return std::ranges::find(settings.customAreas, std::get<Uuid>(owner), &CustomArea::id)->name;
}

struct Message {
  const Wording& wording;

  std::string operator()(const ShortcutRules::ReservedBySystem& problem) const {
    return wording.text("macOS uses this for " + problem.label + ".");
  }
  std::string operator()(const ShortcutRules::UsedBy& problem) const {
    return wording.text("Already set for “") + problem.name + "”.";
  }
  std::string operator()(const ShortcutRules::NeedsModifier&) const {
    return wording.text("Hold Control, Option or Command with the key.");
  }
  std::string operator()(const ShortcutRules::NeedsControlOrOption&) const {
    return wording.text(
        "Add Control or Option, so this does not replace a shortcut such as Command-C in every app.");
  }
};

}  // namespace

std::span<const ShortcutRules::Reserved> ShortcutRules::reserved() { return reservedShortcuts; }

std::optional<ShortcutRules::Problem> ShortcutRules::problem(const HotKeySpec& with,
                                                             const ShortcutOwner& owner,
                                                             const TilwinSettings& in) {
  const bool typesNothing = isFunctionKey(with.keyCode);
  if (!typesNothing && !hasAny(with, HotKeySpec::cmd | HotKeySpec::option | HotKeySpec::control)) {
    return NeedsModifier{};
  }
  const auto taken = std::find_if(reservedShortcuts.begin(), reservedShortcuts.end(),
                                  [&](const Reserved& row) { return row.spec == with; });
  if (taken != reservedShortcuts.end()) return ReservedBySystem{std::string(taken->label)};
  if (!typesNothing && !hasAny(with, HotKeySpec::option | HotKeySpec::control)) return NeedsControlOrOption{};
  if (const auto name = holder(with, owner, in)) return UsedBy{*name};
  return std::nullopt;
}

std::optional<ShortcutRules::Problem> ShortcutRules::problem(const HotKeySpec& with, SnapAction action,
                                                             const TilwinSettings& in) {
  return problem(with, ShortcutOwner(action), in);
}

std::optional<ShortcutRules::UsedBy> ShortcutRules::usedEarlier(const ShortcutOwner& owner,
                                                                const TilwinSettings& in) {
  const auto inForce = in.shortcutsInForce();
  const auto own = std::ranges::find(inForce, owner, &std::pair<ShortcutOwner, HotKeySpec>::first);
  if (own == inForce.end()) return std::nullopt;
  const auto first = std::ranges::find(inForce, own->second, &std::pair<ShortcutOwner, HotKeySpec>::second);
  return first == own ? std::nullopt : std::optional(UsedBy{nameOf(first->first, in)});
}

std::string ShortcutRules::message(const Problem& problem, const Wording& wording) {
  return std::visit(Message{wording}, problem);
}

}  // namespace tilwin
