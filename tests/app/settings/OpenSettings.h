#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "app/settings/form/FormIds.h"
#include "tests/app/RunningProgram.h"

namespace tilwin {

/// The running program with its settings window open, and a user in it.
struct OpenSettings : RunningProgram {
  /// Starts the program with these settings and opens the window.
  void open(const TilwinSettings& settings = {}) {
    startWith(settings);
    delegate->showSettings();
  }
  /// The user does this.
  void does(const FormEvent& event) {
    desktop.settingsWindow.send(event);
    desktop.time.runDue();
  }
  void presses(const std::string& button) { does(form::ButtonPressed{button}); }
  void records(const std::string& recorder, const HotKeySpec& keys) {
    presses(recorder);
    does(form::KeyPressed{keys});
  }

  [[nodiscard]] const FormModel& form() const { return *desktop.settingsWindow.form(); }
  [[nodiscard]] const FormSection& section(std::string_view id) const {
    return *std::ranges::find(form().sections, id, &FormSection::id);
  }
  /// The row with this id, in any section; null if there is none.
  [[nodiscard]] const FormRow* row(std::string_view id) const {
    for (const FormSection& section : form().sections) {
      for (const FormGroup& group : section.groups) {
        const auto found = std::ranges::find(group.rows, id, &FormRow::id);
        if (found != group.rows.end()) return &*found;
      }
    }
    return nullptr;
  }
  /// The control of this kind in the row with this id; null if there is none.
  template <typename Control>
  [[nodiscard]] const Control* control(std::string_view rowId) const {
    const FormRow* const found = row(rowId);
    if (found == nullptr) return nullptr;
    for (const FormControl& each : found->controls) {
      if (const auto* control = std::get_if<Control>(&each)) return control;
    }
    return nullptr;
  }
  [[nodiscard]] std::string recorderTitle(std::string_view rowId) const {
    return control<FormRecorder>(rowId)->title;
  }

  static std::string shortcutOf(const ShortcutOwner& owner) { return FormIds::of(FormIds::shortcut, owner); }
  static std::string resetOf(SnapAction action) { return FormIds::of(FormIds::reset, action); }
};

}  // namespace tilwin
