#include "app/menu/CommandDialogs.h"

namespace tilwin {

std::optional<std::string> CommandDialogs::ask(std::string_view title, std::string_view message,
                                               std::string_view placeholder) {
  dialogs_.activate();
  if (isOpen_) return std::nullopt;
  isOpen_ = true;
  auto answer = dialogs_.prompt({inWords(title), inWords(message)}, inWords(placeholder));
  isOpen_ = false;
  return answer && !answer->empty() ? answer : std::nullopt;
}

void CommandDialogs::tell(const DialogText& text) {
  dialogs_.activate();
  dialogs_.alert(text);
}

}  // namespace tilwin
