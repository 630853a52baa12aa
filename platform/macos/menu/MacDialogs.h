#pragma once

#include "platform/ports/Dialogs.h"

namespace tilwin::macos {

/// Dialogs of AppKit. Return presses the first button, Escape cancels. Main thread only, which waits in each
/// until it is answered; the shared NSApplication must exist. One that is ended in another way counts as
/// cancelled. Source: NSAlert (macOS 10.3).
class MacDialogs final : public Dialogs {
public:
  void activate() override;
  void alert(const DialogText& text) override;
  [[nodiscard]] std::optional<std::string> prompt(const DialogText& text,
                                                  const std::string& placeholder) override;
  [[nodiscard]] bool confirm(const DialogText& text, const std::string& accept) override;
};

}  // namespace tilwin::macos
