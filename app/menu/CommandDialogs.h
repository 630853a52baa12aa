#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/ports/DesktopWords.h"
#include "platform/ports/Dialogs.h"

namespace tilwin {

/// The prompts and alerts of commands, each shown in front of all programs. One prompt at a time: while one
/// is open, another command's prompt is cancelled and brings the open one to the front. Fixed texts are in
/// the words of macOS and are shown in those of the desktop.
class CommandDialogs {
public:
  /// The ports must outlive this.
  CommandDialogs(Dialogs& dialogs, const DesktopWords& words) : dialogs_(dialogs), words_(words) {}

  /// The text the user entered; nothing if the user cancelled or entered nothing.
  [[nodiscard]] std::optional<std::string> ask(std::string_view title, std::string_view message,
                                               std::string_view placeholder = {});
  /// `title` and `message` are shown as they are: they may hold names that the user chose.
  void tell(const DialogText& text);
  [[nodiscard]] std::string inWords(std::string_view fixed) const { return words_.wording().text(fixed); }

private:
  Dialogs& dialogs_;
  const DesktopWords& words_;
  bool isOpen_ = false;  ///< a prompt
};

}  // namespace tilwin
