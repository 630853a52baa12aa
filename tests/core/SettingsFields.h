#pragma once

#include <bit>
#include <string>

#include "core/settings/TilwinSettings.h"
#include "tests/core/Arbitrary.h"

/// Settings as nobody would choose them.

namespace tilwin::arbitrary {

/// Any float at all, the infinities and what is not a number included.
inline double anyNumber() { return std::bit_cast<double>(*rc::gen::arbitrary<std::uint64_t>()); }

/// Short text of any characters.
inline std::string text() {
  constexpr std::array parts{"a", "\"", "\\", "\n", "é", "⌃", "@", ";", "=", "\t", ",", "\x7f", "😀", " "};
  std::string result;
  for (int count = whole(0, 6); count > 0; --count) {
    result += parts[static_cast<std::size_t>(whole(0, static_cast<int>(parts.size()) - 1))];
  }
  return result;
}

inline HotKeySpec spec() {
  return {*rc::gen::arbitrary<std::uint32_t>(), *rc::gen::arbitrary<std::uint32_t>()};
}

inline CustomArea customArea() {
  CustomArea area{.id = Uuid::random(), .name = text()};
  area.rect = {anyNumber(), anyNumber(), anyNumber(), anyNumber()};
  if (*rc::gen::arbitrary<bool>()) area.shortcut = spec();
  return area;
}

inline TilwinSettings settings() {
  TilwinSettings result{.gap = anyNumber(), .outer = anyNumber()};
  for (bool* flag : {&result.cycleWidths, &result.dragToSnap, &result.shadowRecording,
                     &result.showMenuBarIcon, &result.restoreOnDisplayChange}) {
    *flag = *rc::gen::arbitrary<bool>();
  }
  for (int count = whole(0, 4); count > 0; --count) result.shortcuts[text()] = spec();
  for (int count = whole(0, 4); count > 0; --count) result.disabled.insert(text());
  for (int count = whole(0, 4); count > 0; --count) result.ignoredApps.push_back(text());
  for (int count = whole(0, 15); count > 0; --count) result.customAreas.push_back(customArea());
  return result;
}

}  // namespace tilwin::arbitrary
