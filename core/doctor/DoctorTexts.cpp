#include "core/doctor/DoctorTexts.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "core/settings/KeyNames.h"
#include "core/support/DecimalText.h"

namespace tilwin {

std::string DoctorTexts::keys(const HotKeySpec& keys, const Wording& wording) {
  static constexpr std::array<std::string_view, 4> arrows{"←", "→", "↑", "↓"};
  std::vector<Wording::Word> words(wording.keys.begin(), wording.keys.end());
  std::erase_if(words, [](const Wording::Word& word) {
    return std::ranges::find(arrows, word.written) != arrows.end();
  });
  return KeyNames::describe(keys, {.keys = words});
}

std::string DoctorTexts::path(const std::filesystem::path& path,
                              const std::optional<std::filesystem::path>& home) {
  const std::string text = path.lexically_normal().string();
  std::string folder = home ? home->lexically_normal().string() : std::string();
  while (folder.ends_with('/')) folder.pop_back();
  const bool isInside = !folder.empty() && text.starts_with(folder + "/");
  return isInside ? "~" + text.substr(folder.size()) : text;
}

std::string DoctorTexts::milliseconds(MoveTimes::Seconds time) {
  return decimalText(time.count() * 1000, 1) + " ms";
}

std::string DoctorTexts::mode(std::uint32_t mode) {
  std::string digits = "0";
  for (unsigned shift = 9; shift > 0; shift -= 3) {
    digits += static_cast<char>('0' + static_cast<int>((mode >> (shift - 3)) & 7U));
  }
  return digits;
}

}  // namespace tilwin
