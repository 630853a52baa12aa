#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/geometry/Rect.h"
#include "platform/ports/Dialogs.h"
#include "platform/ports/MainQueue.h"

namespace tilwin::contract {

/// A text field as the user sees it.
struct ShownField {
  std::string placeholder{};
  std::string text{};
  Size size{};  ///< in points
  bool hasFocus = false;

  bool operator==(const ShownField&) const = default;
};

/// An open dialog as the user sees it.
struct ShownDialog {
  std::string title{};
  std::string message{};
  std::vector<std::string> buttons{};
  std::optional<ShownField> field{};

  bool operator==(const ShownDialog&) const = default;
};

/// A desktop, the adapter under test, and a user who answers dialogs.
class DialogsWorld {
public:
  /// What the user does while a dialog is open. It ends with the dialog closed, or about to close.
  using Steps = std::function<void()>;

  DialogsWorld() = default;
  DialogsWorld(const DialogsWorld&) = delete;
  DialogsWorld& operator=(const DialogsWorld&) = delete;
  virtual ~DialogsWorld() = default;

  virtual Dialogs& dialogs() = 0;
  virtual MainQueue& mainQueue() = 0;
  /// The user does this as soon as the next dialog without steps is open, in front and has the focus. If it
  /// does not come to that, or stays open afterwards, the test fails and the dialog is closed.
  virtual void whenOpen(Steps steps) = 0;

  // For the steps: these concern the dialog in front.
  [[nodiscard]] virtual ShownDialog shown() = 0;
  /// Types letters, digits and spaces on the keyboard.
  virtual void type(const std::string& text) = 0;
  /// Presses the button with this label with the mouse.
  virtual void press(const std::string& button) = 0;
  virtual void pressReturn() = 0;
  virtual void pressEscape() = 0;
  /// Closes it by the frame of its window, or what the desktop has instead.
  virtual void closeWindow() = 0;
};

using DialogsWorldMaker = std::unique_ptr<DialogsWorld> (*)();

class DialogsContract : public testing::TestWithParam<DialogsWorldMaker> {
protected:
  /// Asks for a text while the user does this.
  std::optional<std::string> prompt(const DialogsWorld::Steps& steps);
  bool confirm(const DialogsWorld::Steps& steps);
  void alert(const DialogsWorld::Steps& steps);

  DialogText text{.title = "Save this arrangement", .message = "Name it, for example “Writing”."};
  std::string placeholder = "Safari left";
  std::unique_ptr<DialogsWorld> world = GetParam()();
  Dialogs& dialogs = world->dialogs();
};

}  // namespace tilwin::contract
