#include "platform/x11/input/X11Keyboard.h"

#include "platform/x11/wire/XkbProtocol.h"

#include <algorithm>
#include <array>
#include <bit>
#include <span>
#include <string_view>
#include <unordered_map>

#include "platform/x11/input/KeyPositions.h"
#include "platform/x11/wire/Reply.h"

namespace tilwin::x11 {

namespace {

using Keysym = xcb_keysym_t;

struct ModifierKey {
  std::uint32_t bit;  ///< of HotKeySpec; 0 for a lock key
  Keysym keysym;
};

/// Source of the keysyms: X11/keysymdef.h.
constexpr std::array<ModifierKey, 8> modifierKeys{{
    {HotKeySpec::option, 0xFFE9},  // Alt_L
    {HotKeySpec::option, 0xFFEA},  // Alt_R
    {HotKeySpec::option, 0xFFE7},  // Meta_L
    {HotKeySpec::cmd, 0xFFEB},     // Super_L
    {HotKeySpec::cmd, 0xFFEC},     // Super_R
    {HotKeySpec::cmd, 0xFFED},     // Hyper_L
    {0, 0xFF7F},                   // Num_Lock
    {0, 0xFF14},                   // Scroll_Lock
}};

constexpr std::uint16_t allModifiers = 0xFF;

std::string_view nameAt(const xcb_xkb_key_name_t& entry) {
  const std::string_view whole(entry.name, sizeof entry.name);
  return whole.substr(0, whole.find('\0'));
}

std::map<std::uint32_t, xcb_keycode_t> keycodesIn(const xcb_xkb_get_names_reply_t& reply) {
  xcb_xkb_get_names_value_list_t lists{};
  xcb_xkb_get_names_value_list_unpack(xcb_xkb_get_names_value_list(&reply), reply.nTypes, reply.indicators,
                                      reply.virtualMods, reply.groupNames, reply.nKeys, reply.nKeyAliases,
                                      reply.nRadioGroups, reply.which, &lists);
  std::unordered_map<std::string_view, xcb_keycode_t> byName;
  for (unsigned index = 0; index < reply.nKeys; ++index) {
    byName.emplace(nameAt(lists.keyNames[index]), static_cast<xcb_keycode_t>(reply.firstKey + index));
  }
  std::map<std::uint32_t, xcb_keycode_t> result;
  for (const auto& position : keyPositions) {
    const auto found = byName.find(position.name);
    if (found != byName.end()) result.emplace(position.keyCode, found->second);
  }
  return result;
}

/// The keysyms of a key, in all its groups and levels; empty if the key is not in the map.
std::span<const Keysym> keysymsOf(const xcb_get_keyboard_mapping_reply_t& map, xcb_keycode_t first,
                                  xcb_keycode_t keycode) {
  const std::span all(xcb_get_keyboard_mapping_keysyms(&map),
                      static_cast<std::size_t>(xcb_get_keyboard_mapping_keysyms_length(&map)));
  const std::size_t width = map.keysyms_per_keycode;
  const std::size_t start = static_cast<std::size_t>(keycode - first) * width;
  return keycode < first || start + width > all.size() ? std::span<const Keysym>()
                                                       : all.subspan(start, width);
}

/// The modifier bits of the keys that have this keysym.
std::uint16_t bitsOf(Keysym wanted, const xcb_get_modifier_mapping_reply_t& modifiers,
                     const xcb_get_keyboard_mapping_reply_t& map, xcb_keycode_t first) {
  const auto* keycodes = xcb_get_modifier_mapping_keycodes(&modifiers);
  const unsigned perModifier = modifiers.keycodes_per_modifier;
  std::uint16_t result = 0;
  for (unsigned index = 0; index < 8 * perModifier; ++index) {
    const auto keysyms = keysymsOf(map, first, keycodes[index]);
    if (std::ranges::find(keysyms, wanted) == keysyms.end()) continue;
    result = static_cast<std::uint16_t>(result | (1U << (index / perModifier)));
  }
  return result;
}

}  // namespace

X11Keyboard X11Keyboard::read(const X11Connection& x) {
  const auto* setup = xcb_get_setup(x.get());
  const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
  Pending<xcb_xkb_get_names_reply> names(
      x.get(), xcb_xkb_get_names(x.get(), XCB_XKB_ID_USE_CORE_KBD, XCB_XKB_NAME_DETAIL_KEY_NAMES));
  Pending<xcb_get_modifier_mapping_reply> modifiers(x.get(), xcb_get_modifier_mapping(x.get()));
  Pending<xcb_get_keyboard_mapping_reply> map(x.get(),
                                              xcb_get_keyboard_mapping(x.get(), setup->min_keycode, count));
  X11Keyboard result;
  if (const auto reply = names.collect()) result.keycodes_ = keycodesIn(*reply);
  const auto modifiersReply = modifiers.collect();
  const auto mapReply = map.collect();
  result.modifiers_ = {{HotKeySpec::shift, XCB_MOD_MASK_SHIFT}, {HotKeySpec::control, XCB_MOD_MASK_CONTROL}};
  if (!modifiersReply || !mapReply) return result;
  for (const auto& key : modifierKeys) {
    const auto bits = bitsOf(key.keysym, *modifiersReply, *mapReply, setup->min_keycode);
    if (bits == 0) continue;
    if (key.bit == 0) {
      result.locks_ = static_cast<std::uint16_t>(result.locks_ | bits);
    } else {
      result.modifiers_.emplace(key.bit, static_cast<std::uint16_t>(1U << std::countr_zero(bits)));
    }
  }
  return result;
}

std::optional<KeyChord> X11Keyboard::chordFor(const HotKeySpec& spec) const {
  const auto key = keycodes_.find(spec.keyCode);
  if (key == keycodes_.end()) return std::nullopt;
  KeyChord result{key->second, 0};
  for (const auto bit : {HotKeySpec::control, HotKeySpec::option, HotKeySpec::shift, HotKeySpec::cmd}) {
    if ((spec.modifiers & bit) == 0) continue;
    const auto modifier = modifiers_.find(bit);
    if (modifier == modifiers_.end()) return std::nullopt;
    result.modifiers = static_cast<std::uint16_t>(result.modifiers | modifier->second);
  }
  return result;
}

std::optional<std::uint32_t> X11Keyboard::keyCodeOf(xcb_keycode_t key) const {
  const auto found = std::ranges::find_if(keycodes_, [&](const auto& entry) { return entry.second == key; });
  return found == keycodes_.end() ? std::nullopt : std::optional(found->first);
}

std::vector<std::uint16_t> X11Keyboard::lockCombinations() const {
  std::vector<std::uint16_t> result;
  // Enumerates all subsets of the lock bits, the empty one last.
  std::uint16_t subset = locks_;
  while (true) {
    result.push_back(subset);
    if (subset == 0) return result;
    subset = static_cast<std::uint16_t>((subset - 1U) & locks_);
  }
}

std::uint16_t X11Keyboard::chordModifiers(std::uint16_t state) const {
  return static_cast<std::uint16_t>(state & allModifiers & ~locks_);
}

}  // namespace tilwin::x11
