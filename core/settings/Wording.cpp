#include "core/settings/Wording.h"

#include <algorithm>

namespace tilwin {
namespace {

bool isLetter(char byte) { return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z'); }

/// Whether a letter stands on both sides of this place.
bool isInsideWord(std::string_view text, std::size_t place) {
  return place > 0 && place < text.size() && isLetter(text[place - 1]) && isLetter(text[place]);
}

bool standsAt(std::string_view text, std::size_t place, std::string_view written) {
  return text.substr(place).starts_with(written) && !isInsideWord(text, place) &&
         !isInsideWord(text, place + written.size());
}

}  // namespace

bool Wording::operator==(const Wording& other) const {
  return std::ranges::equal(words, other.words) && std::ranges::equal(keys, other.keys);
}

std::string Wording::text(std::string_view fixed) const {
  std::string result;
  for (std::size_t place = 0; place < fixed.size();) {
    const auto word =
        std::ranges::find_if(words, [&](const Word& each) { return standsAt(fixed, place, each.written); });
    if (word == words.end()) {
      result += fixed[place++];
    } else {
      result += word->said;
      place += word->written.size();
    }
  }
  return result;
}

std::string_view Wording::key(std::string_view symbol) const {
  const auto found = std::ranges::find(keys, symbol, &Word::written);
  return found == keys.end() ? symbol : found->said;
}

}  // namespace tilwin
