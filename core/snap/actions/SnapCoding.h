#pragma once

#include <string>
#include <string_view>
#include <tuple>

#include "core/snap/actions/GridRegion.h"
#include "core/snap/actions/SnapAction.h"
#include "core/support/JsonCoding.h"

namespace tilwin {

/// Read without a range check, unlike the constructor of `GridRegion`.
template <>
struct JsonFields<GridRegion> {
  static constexpr auto table =
      std::make_tuple(JsonField{"columns", &GridRegion::columns}, JsonField{"rows", &GridRegion::rows},
                      JsonField{"col", &GridRegion::col}, JsonField{"row", &GridRegion::row},
                      JsonField{"colSpan", &GridRegion::colSpan}, JsonField{"rowSpan", &GridRegion::rowSpan});
};

/// An action is stored as its raw value; any other text is an error.
template <>
struct JsonCoding<SnapAction> {
  static SnapAction decode(const JsonReader& reader) {
    const std::string_view name = reader.textView();
    const auto action = SnapActions::fromRawValue(name);
    if (!action) reader.fail(JsonError::Kind::badValue, "no action is called \"" + std::string(name) + "\"");
    return *action;
  }
  static JsonValue encode(SnapAction action) { return JsonValue::of(SnapActions::rawValue(action)); }
};

}  // namespace tilwin
