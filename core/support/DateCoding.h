#pragma once

#include <string>
#include <string_view>

#include "core/support/Date.h"
#include "core/support/JsonCoding.h"

namespace tilwin {

/// A moment is ISO 8601 text; any other text is an error.
template <>
struct JsonCoding<Date> {
  static Date decode(const JsonReader& reader) {
    const std::string_view text = reader.textView();
    const auto date = Iso8601::parse(text);
    if (!date)
      reader.fail(JsonError::Kind::badValue, "\"" + std::string(text) + "\" is not an ISO 8601 date");
    return *date;
  }
  static JsonValue encode(Date date) {
    const auto text = Iso8601::text(date);
    if (!text) throw JsonError(JsonError::Kind::badValue, "", "a date outside the years 0 to 9999");
    return JsonValue::of(*text);
  }
};

}  // namespace tilwin
