#pragma once

#include <string>
#include <string_view>
#include <tuple>

#include "core/drag/ShadowRecord.h"
#include "core/support/JsonCoding.h"

namespace tilwin {

/// A follow-up is stored as its raw value; any other text is an error.
template <>
struct JsonCoding<DragFollowUp> {
  static DragFollowUp decode(const JsonReader& reader) {
    const std::string_view name = reader.textView();
    const auto followUp = DragFollowUps::fromRawValue(name);
    if (!followUp)
      reader.fail(JsonError::Kind::badValue, "no follow-up is called \"" + std::string(name) + "\"");
    return *followUp;
  }
  static JsonValue encode(DragFollowUp followUp) { return JsonValue::of(DragFollowUps::rawValue(followUp)); }
};

/// In the order of the drag log, whose keys are sorted.
template <>
struct JsonFields<ShadowRecord> {
  static constexpr auto table =
      std::make_tuple(JsonField{"at", &ShadowRecord::at}, JsonField{"distance", &ShadowRecord::distance},
                      JsonField{"dwell", &ShadowRecord::dwell}, JsonField{"follow", &ShadowRecord::follow},
                      JsonField{"neighbour", &ShadowRecord::neighbour},
                      JsonField{"rule", &ShadowRecord::rule}, JsonField{"screen", &ShadowRecord::screen},
                      JsonField{"settled", &ShadowRecord::settled}, JsonField{"speed", &ShadowRecord::speed},
                      JsonField{"v", &ShadowRecord::v}, JsonField{"zone", &ShadowRecord::zone});
};

}  // namespace tilwin
