#include "core/settings/HotKeyText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

#include "core/settings/KeyNames.h"

namespace tilwin {
namespace {

struct ModifierWord {
  std::string_view word;
  std::uint32_t bit;
};

/// The word that is written comes before the others that mean the same.
constexpr std::array modifierWords = std::to_array<ModifierWord>({
    {"ctrl", HotKeySpec::control},
    {"alt", HotKeySpec::option},
    {"shift", HotKeySpec::shift},
    {"super", HotKeySpec::cmd},
    {"control", HotKeySpec::control},
    {"option", HotKeySpec::option},
    {"cmd", HotKeySpec::cmd},
    {"command", HotKeySpec::cmd},
    {"win", HotKeySpec::cmd},
});
constexpr std::size_t writtenModifiers = 4;

struct KeyWord {
  std::string_view word;
  std::string_view name;  ///< as in `KeyNames`
};

/// Likewise.
constexpr std::array keyWords = std::to_array<KeyWord>({
    {"left", "←"},
    {"right", "→"},
    {"up", "↑"},
    {"down", "↓"},
    {"return", "↩"},
    {"tab", "⇥"},
    {"backspace", "⌫"},
    {"delete", "⌦"},
    {"escape", "⎋"},
    {"keypadreturn", "Keypad ↩"},
    {"keypadplus", "Keypad +"},
    {"enter", "↩"},
    {"esc", "⎋"},
    {"del", "⌦"},
    {"keypadenter", "Keypad ↩"},
});

constexpr std::string_view codePrefix = "key";

/// Lower case and without spaces: what the name of a key becomes that has no word of its own.
std::string plain(std::string_view name) {
  std::string result;
  for (const char each : name) {
    if (each != ' ') result += each >= 'A' && each <= 'Z' ? static_cast<char>(each - 'A' + 'a') : each;
  }
  return result;
}

std::string wordOf(std::uint32_t keyCode) {
  const std::string name = KeyNames::name(keyCode);
  const auto* const word = std::ranges::find(keyWords, name, &KeyWord::name);
  return word == keyWords.end() ? plain(name) : std::string(word->word);
}

std::optional<std::uint32_t> codeIn(std::string_view word) {
  if (!word.starts_with(codePrefix)) return std::nullopt;
  std::uint32_t code = 0;
  const char* const end = word.data() + word.size();
  const auto read = std::from_chars(word.data() + codePrefix.size(), end, code);
  return read.ec == std::errc() && read.ptr == end ? std::optional(code) : std::nullopt;
}

std::optional<std::uint32_t> keyCodeOf(std::string_view word) {
  const auto* const own = std::ranges::find(keyWords, word, &KeyWord::word);
  for (const KeyNames::Entry& entry : KeyNames::table()) {
    if (own == keyWords.end() ? plain(entry.name) == word : entry.name == own->name) return entry.keyCode;
  }
  return codeIn(word);
}

}  // namespace

std::string HotKeyText::write(const HotKeySpec& spec) {
  std::string text;
  for (const ModifierWord& modifier : std::span(modifierWords).first(writtenModifiers)) {
    if ((spec.modifiers & modifier.bit) != 0) text.append(modifier.word).append("+");
  }
  return text + wordOf(spec.keyCode);
}

std::optional<HotKeySpec> HotKeyText::read(std::string_view text) {
  const std::string all = plain(text);
  std::string_view left = all;
  HotKeySpec spec;
  for (auto plus = left.find('+'); plus != std::string_view::npos; plus = left.find('+')) {
    const auto* const modifier = std::ranges::find(modifierWords, left.substr(0, plus), &ModifierWord::word);
    if (modifier == modifierWords.end()) return std::nullopt;
    spec.modifiers |= modifier->bit;
    left.remove_prefix(plus + 1);
  }
  const auto keyCode = keyCodeOf(left);
  if (!keyCode) return std::nullopt;
  spec.keyCode = *keyCode;
  return spec;
}

}  // namespace tilwin
