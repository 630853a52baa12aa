#pragma once

#include <tuple>

#include "core/geometry/GeometryCoding.h"
#include "core/settings/CustomArea.h"
#include "core/settings/HotKeySpec.h"
#include "core/settings/TilwinSettings.h"
#include "core/support/JsonCoding.h"

namespace tilwin {

template <>
struct JsonFields<HotKeySpec> {
  static constexpr auto table = std::make_tuple(JsonField{"keyCode", &HotKeySpec::keyCode},
                                                JsonField{"modifiers", &HotKeySpec::modifiers});
};

template <>
struct JsonFields<CustomArea> {
  static constexpr auto table =
      std::make_tuple(JsonField{"id", &CustomArea::id}, JsonField{"name", &CustomArea::name},
                      JsonField{"rect", &CustomArea::rect}, JsonField{"shortcut", &CustomArea::shortcut});
};

/// Any object is read: a field that is absent or broken takes its default, a broken area drops out alone.
/// Nothing is brought into range.
template <>
struct JsonCoding<TilwinSettings> {
  static TilwinSettings decode(const JsonReader& reader);
  static JsonValue encode(const TilwinSettings& settings);
};

}  // namespace tilwin
