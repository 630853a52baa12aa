#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "core/geometry/NormalizedRect.h"

/// A form as data: what a window of settings shows, and what each control reads. Whoever draws it decides
/// nothing and reports what the user did (`FormEvent`) by the ids given here, which are unique in a form and
/// stay the same as long as they mean the same thing.

namespace tilwin {

enum class FormSymbol { none, trash, spacing, behavior, keyboard, area, statistics };

/// An on/off switch with its title.
struct FormToggle {
  std::string id{};
  std::string title{};
  bool isOn = false;

  bool operator==(const FormToggle&) const = default;
};

struct FormSlider {
  std::string id{};
  std::string label{};  ///< its accessible name; drawn only as the title of the row
  double value = 0;     ///< may lie outside the range; the knob is then at its end
  double minimum = 0;
  double maximum = 1;
  double step = 0;        ///< 0 for a continuous slider
  std::string caption{};  ///< the value in words, drawn beside the slider

  bool operator==(const FormSlider&) const = default;
};

struct FormTextField {
  std::string id{};
  std::string label{};  ///< its accessible name
  std::string text{};
  std::string placeholder{};
  bool isSearch = false;  ///< drawn as a search field, with a button that empties it

  bool operator==(const FormTextField&) const = default;
};

struct FormButton {
  std::string id{};
  std::string title{};  ///< may be empty if there is a symbol
  std::string label{};  ///< its accessible name, if that is not the title
  FormSymbol symbol = FormSymbol::none;
  bool isEnabled = true;

  bool operator==(const FormButton&) const = default;
};

/// A button that shows a keyboard shortcut. While it records, every key goes to the form (`KeyPressed`) and
/// nowhere else.
struct FormRecorder {
  std::string id{};
  std::string title{};
  std::string label{};   ///< its accessible name
  bool isEmpty = false;  ///< the title stands for no shortcut ("Not set"); drawn fainter
  bool isRecording = false;

  bool operator==(const FormRecorder&) const = default;
};

using FormControl = std::variant<FormToggle, FormSlider, FormTextField, FormButton, FormRecorder>;

/// A miniature of a display with rectangles on it.
struct FormPicture {
  struct Tile {
    NormalizedRect rect{};       ///< fractions of the display
    bool isHighlighted = false;  ///< in the accent colour, in front; otherwise faint

    bool operator==(const Tile&) const = default;
  };

  std::string id{};  ///< not empty if the user can drag on the picture
  std::string label{};
  double aspectRatio = 1.6;  ///< width / height of the display
  std::vector<Tile> tiles{};

  bool operator==(const FormPicture&) const = default;
};

/// One line: a small picture and a title at the left, controls at the right, and texts below.
struct FormRow {
  std::string id{};
  std::optional<FormPicture> picture{};
  std::string title{};  ///< empty where the control has its own
  std::vector<FormControl> controls{};
  std::string note{};     ///< an explanation
  std::string problem{};  ///< what is wrong, in a colour that warns

  bool operator==(const FormRow&) const = default;
};

/// Rows that belong together, drawn as one card, beside a large picture if there is one.
struct FormGroup {
  std::string id{};
  std::string heading{};
  std::optional<FormPicture> picture{};
  std::vector<FormRow> rows{};

  bool operator==(const FormGroup&) const = default;
};

struct FormSection {
  std::string id{};
  std::string title{};
  FormSymbol symbol = FormSymbol::none;
  std::string help{};                     ///< a line below the title
  std::optional<FormTextField> search{};  ///< stays in view while the groups scroll
  std::vector<FormGroup> groups{};
  std::string emptyText{};  ///< shown instead of groups if there are none

  bool operator==(const FormSection&) const = default;
};

/// The whole form. All sections are listed; only the chosen one is drawn.
struct FormModel {
  std::string title{};
  std::vector<FormSection> sections{};
  std::string chosenSection{};  ///< the id of one of them

  bool operator==(const FormModel&) const = default;

  /// Whether one of its recorders is recording.
  [[nodiscard]] bool isRecording() const {
    const auto records = [](const FormControl& control) {
      const auto* recorder = std::get_if<FormRecorder>(&control);
      return recorder != nullptr && recorder->isRecording;
    };
    return std::ranges::any_of(sections, [&](const FormSection& section) {
      return std::ranges::any_of(section.groups, [&](const FormGroup& group) {
        return std::ranges::any_of(
            group.rows, [&](const FormRow& row) { return std::ranges::any_of(row.controls, records); });
      });
    });
  }
};

}  // namespace tilwin
