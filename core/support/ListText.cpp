#include "core/support/ListText.h"

namespace tilwin {

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
