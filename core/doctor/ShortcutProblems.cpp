#include "core/doctor/ShortcutProblems.h"

#include "core/doctor/DoctorTexts.h"
#include "core/doctor/KnownManagers.h"
#include "core/settings/HotKeyText.h"

namespace tilwin {
namespace {

/// What a key of the manager's can be bound to instead.
std::string commandFor(const ShortcutFacts& shortcut) {
  return shortcut.action.empty() ? "\"tilwin area NAME\"" : "\"tilwin snap " + shortcut.action + "\"";
}

/// "remove it in rc.xml, or bind it to "tilwin snap leftHalf"."
std::string remedy(const KnownManager& manager, const ShortcutFacts& shortcut) {
  std::string text = "remove it in " + std::string(manager.keysAt) + ", or bind it ";
  if (!manager.commandsAt.empty()) text.append("in ").append(manager.commandsAt).append(" ");
  return text + "to " + commandFor(shortcut) + ".";
}

std::string otherRemedy(const ShortcutFacts& shortcut) {
  const std::string others =
      shortcut.action.empty() ? "the settings" : "\"tilwin set shortcut." + shortcut.action + " KEYS\"";
  return "remove it there, bind it there to " + commandFor(shortcut) + ", or choose other keys with " +
         others + ".";
}

std::string refusal(const Diagnosis& diagnosis, const ShortcutFacts& shortcut) {
  const auto& manager = diagnosis.desktop.manager;
  const std::string keys = DoctorTexts::keys(shortcut.keys, diagnosis.wording);
  if (!manager) return "Another program keeps " + keys + ": " + otherRemedy(shortcut);
  const auto known = KnownManagers::named(manager->name);
  const auto use = KnownManagers::use(known, HotKeyText::write(shortcut.keys));
  if (!use.empty()) {
    return std::string(known.name) + " keeps " + keys + " for " + std::string(use) + ": " +
           remedy(known, shortcut);
  }
  std::string holder = known.name.empty() ? "The window manager" : std::string(known.name);
  if (!known.keysAt.empty()) holder += " (" + std::string(known.keysAt) + ")";
  return holder + " or another program keeps " + keys + ": " + otherRemedy(shortcut);
}

}  // namespace

std::vector<std::string> shortcutProblems(const Diagnosis& diagnosis) {
  using State = ShortcutFacts::State;
  std::vector<std::string> problems;
  for (const ShortcutFacts& shortcut : diagnosis.shortcuts) {
    if (shortcut.state == State::refused) problems.push_back(refusal(diagnosis, shortcut));
    if (shortcut.state == State::usedEarlier) {
      problems.push_back("The settings have " + DoctorTexts::keys(shortcut.keys, diagnosis.wording) +
                         " twice: only the first works. Choose other keys for the second.");
    }
  }
  return problems;
}

}  // namespace tilwin
