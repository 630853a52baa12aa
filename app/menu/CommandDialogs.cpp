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

std::string counted(std::size_t count, std::string_view singular) {
  return std::to_string(count) + " " + std::string(singular) + (count == 1 ? "" : "s");
}

std::string joined(const std::vector<std::string>& texts, std::string_view separator) {
  std::string result;
  for (std::size_t index = 0; index < texts.size(); ++index) {
    if (index > 0) result += separator;
    result += texts[index];
  }
  return result;
}

}  // namespace tilwin
