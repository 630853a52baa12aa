#include "tests/desktop/harness/Keyboard.h"

// The protocol calls a field by a word that C++ keeps for itself.
#define explicit explicitComponents
#include <xcb/xkb.h>
#undef explicit

#include <array>
#include <optional>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

struct NamedSymbol {
  const char* name;
  xcb_keysym_t symbol;
};

/// Keys by more than their character (X11/keysymdef.h).
constexpr std::array<NamedSymbol, 40> namedSymbols{{
    {"Control", 0xffe3},   {"Alt", 0xffe9},       {"Shift", 0xffe1},   {"Super", 0xffeb},
    {"Left", 0xff51},      {"Up", 0xff52},        {"Right", 0xff53},   {"Down", 0xff54},
    {"Home", 0xff50},      {"End", 0xff57},       {"Page_Up", 0xff55}, {"Page_Down", 0xff56},
    {"Return", 0xff0d},    {"BackSpace", 0xff08}, {"Delete", 0xffff},  {"Insert", 0xff63},
    {"Tab", 0xff09},       {"Escape", 0xff1b},    {"space", 0x0020},   {"equal", 0x003d},
    {"minus", 0x002d},     {"plus", 0x002b},      {"comma", 0x002c},   {"period", 0x002e},
    {"Caps_Lock", 0xffe5}, {"Num_Lock", 0xff7f},  {"Menu", 0xff67},    {"Control_R", 0xffe4},
    {"F1", 0xffbe},        {"F2", 0xffbf},        {"F3", 0xffc0},      {"F4", 0xffc1},
    {"F5", 0xffc2},        {"F6", 0xffc3},        {"F7", 0xffc4},      {"F8", 0xffc5},
    {"F9", 0xffc6},        {"F10", 0xffc7},       {"F11", 0xffc8},     {"F12", 0xffc9},
}};

xcb_keysym_t symbolOf(const std::string& name) {
  for (const auto& row : namedSymbols) {
    if (name == row.name) return row.symbol;
  }
  // Latin-1 symbols are their characters; letters stand in the keymap in lower case first.
  if (name.size() == 1 && name[0] >= 'A' && name[0] <= 'Z')
    return static_cast<xcb_keysym_t>(name[0] - 'A' + 'a');
  if (name.size() == 1 && name[0] > ' ' && name[0] <= '~') return static_cast<xcb_keysym_t>(name[0]);
  throw HarnessError("no key called \"" + name + "\"");
}

}  // namespace

xcb_keycode_t Keyboard::named(const std::string& name) {
  if (name.size() > 2 && name.front() == '<' && name.back() == '>')
    return at(name.substr(1, name.size() - 2));
  const xcb_keysym_t wanted = symbolOf(name);
  xcb_connection_t* xcb = connection_.get();
  const xcb_setup_t* setup = xcb_get_setup(xcb);
  const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
  const XcbPtr<xcb_get_keyboard_mapping_reply_t> reply(
      xcb_get_keyboard_mapping_reply(xcb, xcb_get_keyboard_mapping(xcb, setup->min_keycode, count), nullptr));
  if (!reply) throw HarnessError("the X connection is lost");
  const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(reply.get());
  for (std::size_t column = 0; column < reply->keysyms_per_keycode; ++column) {
    for (std::size_t key = 0; key < count; ++key) {
      if (symbols[key * reply->keysyms_per_keycode + column] == wanted) {
        return static_cast<xcb_keycode_t>(setup->min_keycode + key);
      }
    }
  }
  throw HarnessError("no key on this keyboard gives \"" + name + "\"");
}

xcb_keycode_t Keyboard::at(const std::string& position) {
  xcb_connection_t* xcb = connection_.get();
  const XcbPtr<xcb_xkb_use_extension_reply_t> use(
      xcb_xkb_use_extension_reply(xcb, xcb_xkb_use_extension(xcb, 1, 0), nullptr));
  const XcbPtr<xcb_xkb_get_names_reply_t> reply(xcb_xkb_get_names_reply(
      xcb, xcb_xkb_get_names(xcb, XCB_XKB_ID_USE_CORE_KBD, XCB_XKB_NAME_DETAIL_KEY_NAMES), nullptr));
  if (!use || !reply) throw HarnessError("the server has no XKB names");
  xcb_xkb_get_names_value_list_t list;
  xcb_xkb_get_names_value_list_unpack(xcb_xkb_get_names_value_list(reply.get()), reply->nTypes,
                                      reply->indicators, reply->virtualMods, reply->groupNames, reply->nKeys,
                                      reply->nKeyAliases, reply->nRadioGroups, reply->which, &list);
  for (std::size_t key = 0; key < reply->nKeys; ++key) {
    // Padded with zeros to its full length.
    const std::string name(list.keyNames[key].name, sizeof list.keyNames[key].name);
    if (name.substr(0, name.find('\0')) == position) return static_cast<xcb_keycode_t>(reply->firstKey + key);
  }
  throw HarnessError("no key at position " + position);
}

std::vector<xcb_keycode_t> Keyboard::chord(const std::string& keys) {
  std::vector<xcb_keycode_t> codes;
  std::size_t from = 0;
  while (from < keys.size()) {
    // A plus sign that ends the text is the key of that name.
    auto plus = keys.find('+', from);
    if (plus == std::string::npos || plus == from) plus = keys.size();
    codes.push_back(named(keys.substr(from, plus - from)));
    from = plus + 1;
  }
  return codes;
}

std::uint16_t Keyboard::modifier(xcb_keycode_t key) {
  xcb_connection_t* xcb = connection_.get();
  const XcbPtr<xcb_get_modifier_mapping_reply_t> reply(
      xcb_get_modifier_mapping_reply(xcb, xcb_get_modifier_mapping(xcb), nullptr));
  if (!reply) throw HarnessError("the X connection is lost");
  const xcb_keycode_t* codes = xcb_get_modifier_mapping_keycodes(reply.get());
  std::uint16_t bits = 0;
  for (std::size_t row = 0; row < 8; ++row) {
    for (std::size_t column = 0; column < reply->keycodes_per_modifier; ++column) {
      if (codes[row * reply->keycodes_per_modifier + column] == key) {
        bits = static_cast<std::uint16_t>(bits | 1U << row);
      }
    }
  }
  return bits;
}

}  // namespace tilwin::desktop
