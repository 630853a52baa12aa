#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/geometry/Rect.h"
#include "core/settings/HotKeySpec.h"
#include "platform/ports/FormModel.h"
#include "platform/ports/SettingsWindow.h"

namespace tilwin::contract {

struct ShownRow {
  std::string id{};
  std::string title{};
  std::vector<std::string> controls{};  ///< their ids, in reading order
  std::string note{};
  std::string problem{};

  bool operator==(const ShownRow&) const = default;
};

struct ShownGroup {
  std::string id{};
  std::string heading{};
  std::vector<ShownRow> rows{};

  bool operator==(const ShownGroup&) const = default;
};

/// What a person sees in the window: the texts of the chosen section, from top to bottom.
struct ShownForm {
  std::string windowTitle{};
  std::vector<std::string> sections{};
  std::string chosen{};  ///< the title of the chosen section in the list of sections
  std::string title{};
  std::string help{};
  std::string emptyText{};
  std::vector<ShownGroup> groups{};

  bool operator==(const ShownForm&) const = default;
};

/// What the window should show of a form.
[[nodiscard]] ShownForm expectedOf(const FormModel& form);

/// The cursor of a text field, and what is selected, in characters.
struct FieldSelection {
  int cursor = 0;
  int start = 0;
  int length = 0;

  bool operator==(const FieldSelection&) const = default;
};

/// A window under test and the hands and eyes of its user, for one toolkit. Calls return when their input has
/// been handled. Ids are those of the form; controls are brought into view before they are used.
class SettingsWindowDriver {
public:
  SettingsWindowDriver() = default;
  SettingsWindowDriver(const SettingsWindowDriver&) = delete;
  SettingsWindowDriver& operator=(const SettingsWindowDriver&) = delete;
  virtual ~SettingsWindowDriver() = default;

  virtual SettingsWindow& window() = 0;
  /// Runs the toolkit until the condition holds. Returns false on timeout.
  virtual bool settle(const std::function<bool()>& condition) = 0;

  // The mouse.
  virtual void press(const std::string& button) = 0;
  virtual void flip(const std::string& toggle) = 0;
  /// Drags the knob to this fraction of the way.
  virtual void moveSlider(const std::string& slider, double to) = 0;
  virtual void choose(const std::string& section) = 0;
  /// Takes hold of a picture at a point in fractions of its display; moves; lets go.
  virtual void grab(const std::string& picture, Point at) = 0;
  virtual void dragTo(const std::string& picture, Point to) = 0;
  virtual void drop(const std::string& picture) = 0;
  /// Closes the window by its title bar.
  virtual void closeByHand() = 0;

  // The keyboard.
  /// Gives the control the focus, by the keyboard alone.
  virtual void focus(const std::string& control) = 0;
  /// Types lower-case letters, digits and spaces.
  virtual void type(const std::string& text) = 0;
  virtual void pressKeys(const HotKeySpec& keys) = 0;
  virtual void holdUntilItRepeats(const HotKeySpec& keys) = 0;
  /// Presses and releases Shift, Control, Option and Command, each alone.
  virtual void pressModifiersAlone() = 0;
  virtual void setCapsLock(bool on) = 0;

  /// The user turns to a window of another program, and back.
  virtual void leaveProgram() = 0;
  virtual void returnToProgram() = 0;
  /// Whether the window is the one that the user works in.
  [[nodiscard]] virtual bool isInFront() = 0;

  [[nodiscard]] virtual ShownForm shown() = 0;
  [[nodiscard]] virtual bool isOn(const std::string& toggle) = 0;
  [[nodiscard]] virtual double sliderPosition(const std::string& slider) = 0;  ///< of the knob, 0 to 1
  [[nodiscard]] virtual std::string caption(const std::string& slider) = 0;
  [[nodiscard]] virtual std::string text(const std::string& field) = 0;
  [[nodiscard]] virtual FieldSelection selection(const std::string& field) = 0;
  [[nodiscard]] virtual std::string buttonTitle(const std::string& buttonOrRecorder) = 0;
  [[nodiscard]] virtual std::vector<FormPicture::Tile> tiles(const std::string& picture) = 0;
  /// The id of the control that has the focus; empty if none has.
  [[nodiscard]] virtual std::string focused() = 0;
};

using SettingsWindowDriverMaker = std::unique_ptr<SettingsWindowDriver> (*)();

/// ANSI key codes.
namespace keys {
inline constexpr std::uint32_t a = 0;
inline constexpr std::uint32_t f = 3;
inline constexpr std::uint32_t q = 12;
inline constexpr std::uint32_t w = 13;
inline constexpr std::uint32_t returnKey = 36;
inline constexpr std::uint32_t slash = 44;
inline constexpr std::uint32_t tab = 48;
inline constexpr std::uint32_t space = 49;
inline constexpr std::uint32_t backspace = 51;
inline constexpr std::uint32_t escape = 53;
inline constexpr std::uint32_t home = 115;
inline constexpr std::uint32_t pageUp = 116;
inline constexpr std::uint32_t forwardDelete = 117;
inline constexpr std::uint32_t left = 123;
inline constexpr std::uint32_t right = 124;
inline constexpr std::uint32_t down = 125;
inline constexpr std::uint32_t up = 126;
}  // namespace keys

}  // namespace tilwin::contract
