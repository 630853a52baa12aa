#pragma once

#include <string>

#include "core/support/JsonCoding.h"
#include "core/support/Uuid.h"

namespace tilwin {

/// An identifier is its upper-case hyphenated text; lower case is read too, any other text is an error.
template <>
struct JsonCoding<Uuid> {
  static Uuid decode(const JsonReader& reader) {
    const auto uuid = Uuid::parse(reader.text());
    if (!uuid) reader.fail(JsonError::Kind::badValue, "an identifier expected");
    return *uuid;
  }
  static JsonValue encode(const Uuid& uuid) { return JsonValue::of(std::string_view(uuid.text())); }
};

}  // namespace tilwin
