#include "core/settings/KeyNames.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tilwin {
namespace {

// clang-format off
constexpr std::array names = std::to_array<KeyNames::Entry>({
    // Letters
    {0, "A"}, {1, "S"}, {2, "D"}, {3, "F"}, {4, "H"}, {5, "G"}, {6, "Z"}, {7, "X"}, {8, "C"}, {9, "V"},
    {11, "B"}, {12, "Q"}, {13, "W"}, {14, "E"}, {15, "R"}, {16, "Y"}, {17, "T"}, {31, "O"}, {32, "U"},
    {34, "I"}, {35, "P"}, {37, "L"}, {38, "J"}, {40, "K"}, {45, "N"}, {46, "M"},
    // Digits
    {18, "1"}, {19, "2"}, {20, "3"}, {21, "4"}, {23, "5"}, {22, "6"}, {26, "7"}, {28, "8"}, {25, "9"},
    {29, "0"},
    // Punctuation
    {24, "="}, {27, "-"}, {30, "]"}, {33, "["}, {39, "'"}, {41, ";"}, {42, "\\"}, {43, ","}, {44, "/"},
    {47, "."}, {50, "`"},
    // Special keys
    {36, "↩"}, {48, "⇥"}, {49, "Space"}, {51, "⌫"}, {53, "⎋"}, {117, "⌦"}, {115, "Home"}, {119, "End"},
    {116, "Page Up"}, {121, "Page Down"}, {123, "←"}, {124, "→"}, {125, "↓"}, {126, "↑"},
    // Function keys
    {122, "F1"}, {120, "F2"}, {99, "F3"}, {118, "F4"}, {96, "F5"}, {97, "F6"}, {98, "F7"}, {100, "F8"},
    {101, "F9"}, {109, "F10"}, {103, "F11"}, {111, "F12"},
    // Keypad
    {65, "Keypad ."}, {67, "Keypad *"}, {69, "Keypad +"}, {75, "Keypad /"}, {76, "Keypad ↩"},
    {78, "Keypad -"}, {81, "Keypad ="}, {82, "Keypad 0"}, {83, "Keypad 1"}, {84, "Keypad 2"},
    {85, "Keypad 3"}, {86, "Keypad 4"}, {87, "Keypad 5"}, {88, "Keypad 6"}, {89, "Keypad 7"},
    {91, "Keypad 8"}, {92, "Keypad 9"},
});
// clang-format on

constexpr std::array modifierSymbols = std::to_array<std::pair<std::uint32_t, std::string_view>>({
    {HotKeySpec::control, "⌃"},
    {HotKeySpec::option, "⌥"},
    {HotKeySpec::shift, "⇧"},
    {HotKeySpec::cmd, "⌘"},
});

}  // namespace

std::span<const KeyNames::Entry> KeyNames::table() { return names; }

std::string KeyNames::name(std::uint32_t keyCode) {
  const auto found =
      std::find_if(names.begin(), names.end(), [&](const Entry& entry) { return entry.keyCode == keyCode; });
  if (found == names.end()) return "Key " + std::to_string(keyCode);
  return std::string(found->name);
}

std::string KeyNames::describe(const HotKeySpec& spec, const Wording& wording) {
  std::string text;
  for (const auto& [bit, symbol] : modifierSymbols) {
    if ((spec.modifiers & bit) != 0) text += wording.key(symbol);
  }
  return text.append(wording.key(name(spec.keyCode)));
}

}  // namespace tilwin
