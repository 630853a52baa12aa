#pragma once

#include <string>
#include <variant>

#include "core/geometry/Rect.h"
#include "core/settings/HotKeySpec.h"

/// What the user did in a form. Ids are those of the `FormModel`.

namespace tilwin::form {

struct ButtonPressed {
  std::string id{};  ///< of a button or a recorder
  bool operator==(const ButtonPressed&) const = default;
};

struct ToggleChanged {
  std::string id{};
  bool isOn = false;
  bool operator==(const ToggleChanged&) const = default;
};

struct SliderMoved {
  std::string id{};
  double value = 0;
  bool operator==(const SliderMoved&) const = default;
};

struct TextChanged {
  std::string id{};
  std::string text{};
  bool operator==(const TextChanged&) const = default;
};

/// A key went down while a recorder was recording. Modifier keys alone and keys without an ANSI key code are
/// not reported.
struct KeyPressed {
  HotKeySpec keys{};
  bool operator==(const KeyPressed&) const = default;
};

/// The left button went down, moved or came up on a picture that can be dragged on. `at` is in fractions of
/// the display and may lie outside it; `reach` is how near counts as touching, in the same fractions.
struct PictureGrabbed {
  std::string id{};
  Point at{};
  Size reach{};
  bool operator==(const PictureGrabbed&) const = default;
};

struct PictureDragged {
  std::string id{};
  Point at{};
  bool operator==(const PictureDragged&) const = default;
};

struct PictureReleased {
  std::string id{};
  bool operator==(const PictureReleased&) const = default;
};

struct SectionChosen {
  std::string id{};
  bool operator==(const SectionChosen&) const = default;
};

/// The user closed the window.
struct WindowClosed {
  bool operator==(const WindowClosed&) const = default;
};

/// The window lost the keyboard focus to another window, of this program or of another one.
struct FocusLost {
  bool operator==(const FocusLost&) const = default;
};

}  // namespace tilwin::form

namespace tilwin {

using FormEvent =
    std::variant<form::ButtonPressed, form::ToggleChanged, form::SliderMoved, form::TextChanged,
                 form::KeyPressed, form::PictureGrabbed, form::PictureDragged, form::PictureReleased,
                 form::SectionChosen, form::WindowClosed, form::FocusLost>;

}  // namespace tilwin
