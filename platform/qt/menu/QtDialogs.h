#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/ports/Dialogs.h"
#include "platform/qt/menu/DialogBox.h"

namespace tilwin::qt {

/// Dialogs as windows of this program, titled "Tilwin". They belong to the whole program: while one is open,
/// its other windows take no input. A dialog that opens while another is open must be closed first. The
/// buttons stand in the order of the desktop. A QApplication must exist as long as this does.
class QtDialogs : public Dialogs {
public:
  /// `beforeOpening` is called before each dialog, for instance to give the application its colours.
  explicit QtDialogs(std::function<void()> beforeOpening = nullptr)
      : beforeOpening_(std::move(beforeOpening)) {}

  /// Every dialog comes to the front by itself when it opens; this brings an open one there again.
  void activate() override;
  void alert(const DialogText& text) override;
  [[nodiscard]] std::optional<std::string> prompt(const DialogText& text,
                                                  const std::string& placeholder) override;
  [[nodiscard]] bool confirm(const DialogText& text, const std::string& accept) override;

private:
  /// Returns whether the user accepted.
  bool run(DialogBox& box);

  std::function<void()> beforeOpening_;
  std::vector<DialogBox*> open_;
};

}  // namespace tilwin::qt
