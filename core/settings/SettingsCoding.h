#pragma once

#include <tuple>

#include "core/geometry/GeometryCoding.h"
#include "core/settings/CustomArea.h"
#include "core/settings/HotKeySpec.h"
#include "core/settings/TilwinSettings.h"
#include "core/support/JsonCoding.h"

/// The JSON form of the settings.

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

/// Decodes any JSON object: a missing or invalid field gets its default, an invalid custom area is skipped.
/// Does not check ranges; see `TilwinSettings::clamp`.
template <>
struct JsonCoding<TilwinSettings> {
  static TilwinSettings decode(const JsonReader& reader);
  static JsonValue encode(const TilwinSettings& settings);
};

}  // namespace tilwin
