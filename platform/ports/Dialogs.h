#pragma once

#include <optional>
#include <string>

namespace tilwin {

/// The two texts of a dialog.
struct DialogText {
  std::string title{};    ///< one short line
  std::string message{};  ///< explains it; may be empty or have several lines

  bool operator==(const DialogText&) const = default;
};

/// Modal dialogs. Each function returns when the user has closed the dialog; meanwhile hot keys, timers and
/// desktop events are handled. If the main queue is stopped, an open dialog closes as if cancelled. Texts are
/// shown as they stand, without markup.
class Dialogs {
public:
  Dialogs() = default;
  Dialogs(const Dialogs&) = delete;
  Dialogs& operator=(const Dialogs&) = delete;
  virtual ~Dialogs() = default;

  /// Makes this program the active one, so that the next dialog appears in front and has the keyboard focus.
  virtual void activate() = 0;
  /// Shows a message with the button "OK".
  virtual void alert(const DialogText& text) = 0;
  /// Shows a text field of 360 × 24 points, which has the keyboard focus, and the buttons "OK" and "Cancel".
  /// Returns the entered text, which may be empty; nothing if the user cancelled.
  [[nodiscard]] virtual std::optional<std::string> prompt(const DialogText& text,
                                                          const std::string& placeholder) = 0;
  /// Shows a message with the buttons `accept` and "Cancel". Returns whether the user accepted.
  [[nodiscard]] virtual bool confirm(const DialogText& text, const std::string& accept) = 0;
};

}  // namespace tilwin
