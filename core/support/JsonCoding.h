#pragma once

#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <variant>
#include <vector>

#include "core/support/Date.h"
#include "core/support/JsonError.h"
#include "core/support/JsonReader.h"
#include "core/support/JsonValue.h"
#include "core/support/Uuid.h"

/// Conversion between values and JSON (RFC 8259). A record type lists its keys by specialising `JsonFields`;
/// any other type specialises `JsonCoding`. Both directions throw `JsonError`; the functions at the end of
/// this file catch it and return it as a result.

namespace tilwin {

template <typename Record, typename Member>
struct JsonField {
  std::string_view key;
  Member Record::*member;
};

template <typename Record, typename Member>
JsonField(const char*, Member Record::*) -> JsonField<Record, Member>;

/// A specialisation has a constexpr tuple `table` of `JsonField`s: the keys of `Record` in the order in which
/// they are written. An optional member may be absent or null in the JSON, and is not written when empty;
/// every other key is required.
template <typename Record>
struct JsonFields;

template <typename T>
struct JsonCoding {
  static T decode(const JsonReader& reader) {
    T record;
    std::apply([&](const auto&... field) { (take(reader, field, record), ...); }, JsonFields<T>::table);
    return record;
  }
  static JsonValue encode(const T& record) {
    JsonValue object = JsonValue::object();
    std::apply([&](const auto&... field) { (put(object, field.key, record.*field.member), ...); },
               JsonFields<T>::table);
    return object;
  }

private:
  template <typename Member>
  static void take(const JsonReader& reader, const JsonField<T, Member>& field, T& record) {
    record.*field.member = JsonCoding<Member>::decode(reader.member(field.key));
  }
  template <typename Member>
  static void take(const JsonReader& reader, const JsonField<T, std::optional<Member>>& field, T& record) {
    const auto found = reader.find(field.key);
    if (found) record.*field.member = JsonCoding<Member>::decode(*found);
  }
  template <typename Member>
  static void put(JsonValue& object, std::string_view key, const Member& value) {
    object.set(key, JsonCoding<Member>::encode(value));
  }
  template <typename Member>
  static void put(JsonValue& object, std::string_view key, const std::optional<Member>& value) {
    if (value) put(object, key, *value);
  }
};

template <>
struct JsonCoding<bool> {
  static bool decode(const JsonReader& reader) { return reader.flag(); }
  static JsonValue encode(bool value) { return JsonValue::of(value); }
};

template <>
struct JsonCoding<double> {
  static double decode(const JsonReader& reader) { return reader.number(); }
  static JsonValue encode(double value) { return JsonValue::of(value); }
};

template <>
struct JsonCoding<std::int64_t> {
  using Limits = std::numeric_limits<std::int64_t>;
  static std::int64_t decode(const JsonReader& reader) {
    return reader.wholeNumber(Limits::min(), Limits::max());
  }
  static JsonValue encode(std::int64_t value) { return JsonValue::of(value); }
};

template <>
struct JsonCoding<std::uint32_t> {
  using Limits = std::numeric_limits<std::uint32_t>;
  static std::uint32_t decode(const JsonReader& reader) {
    return static_cast<std::uint32_t>(reader.wholeNumber(Limits::min(), Limits::max()));
  }
  static JsonValue encode(std::uint32_t value) { return JsonValue::of(std::int64_t{value}); }
};

template <>
struct JsonCoding<std::string> {
  static std::string decode(const JsonReader& reader) { return reader.text(); }
  static JsonValue encode(const std::string& value) { return JsonValue::of(std::string_view(value)); }
};

/// ISO 8601 text; any other text is an error.
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

/// Hyphenated text, written in upper case and read in either; any other text is an error.
template <>
struct JsonCoding<Uuid> {
  static Uuid decode(const JsonReader& reader) {
    const auto uuid = Uuid::parse(reader.text());
    if (!uuid) reader.fail(JsonError::Kind::badValue, "an identifier expected");
    return *uuid;
  }
  static JsonValue encode(const Uuid& uuid) { return JsonValue::of(std::string_view(uuid.text())); }
};

template <typename Element>
struct JsonCoding<std::vector<Element>> {
  static std::vector<Element> decode(const JsonReader& reader) {
    std::vector<Element> values;
    // Not `elements()`: if an early element is broken, no readers are made for the rest.
    for (std::size_t index = 0, count = reader.size(); index < count; ++index)
      values.push_back(JsonCoding<Element>::decode(reader.element(index)));
    return values;
  }
  static JsonValue encode(const std::vector<Element>& values) {
    JsonValue array = JsonValue::array();
    for (const Element& value : values) array.append(JsonCoding<Element>::encode(value));
    return array;
  }
};

/// An array; duplicates are read as one element.
template <typename Element>
struct JsonCoding<std::set<Element>> {
  static std::set<Element> decode(const JsonReader& reader) {
    std::set<Element> values;
    for (const JsonReader& element : reader.elements()) values.insert(JsonCoding<Element>::decode(element));
    return values;
  }
  static JsonValue encode(const std::set<Element>& values) {
    JsonValue array = JsonValue::array();
    for (const Element& value : values) array.append(JsonCoding<Element>::encode(value));
    return array;
  }
};

/// An object with arbitrary keys.
template <typename Value>
struct JsonCoding<std::map<std::string, Value>> {
  static std::map<std::string, Value> decode(const JsonReader& reader) {
    std::map<std::string, Value> values;
    for (std::string& key : reader.keys()) {
      Value value = JsonCoding<Value>::decode(reader.member(key));
      values.emplace(std::move(key), std::move(value));
    }
    return values;
  }
  static JsonValue encode(const std::map<std::string, Value>& values) {
    JsonValue object = JsonValue::object();
    for (const auto& [key, value] : values) object.set(key, JsonCoding<Value>::encode(value));
    return object;
  }
};

/// An element that is empty if it cannot be decoded, instead of failing the whole array. Decoding only.
template <typename T>
struct Lossy {
  std::optional<T> value;
};

template <typename T>
struct JsonCoding<Lossy<T>> {
  static Lossy<T> decode(const JsonReader& reader) {
    try {
      return {JsonCoding<T>::decode(reader)};
    } catch (const JsonError&) {
      return {};
    }
  }
};

/// Parses a JSON text and decodes it; returns the value or the first error.
template <typename T>
[[nodiscard]] std::variant<T, JsonError> decodeJson(std::string_view text) {
  try {
    return JsonCoding<T>::decode(JsonReader::parse(text));
  } catch (const JsonError& error) {
    return error;
  }
}

/// Encodes to compact JSON text; returns the text or the first error.
template <typename T>
[[nodiscard]] std::variant<std::string, JsonError> encodeJson(const T& value) {
  try {
    return JsonCoding<T>::encode(value).text();
  } catch (const JsonError& error) {
    return error;
  }
}

/// Like `encodeJson`, but indented and with sorted keys, for people to read.
template <typename T>
[[nodiscard]] std::variant<std::string, JsonError> encodePrettyJson(const T& value) {
  try {
    return JsonCoding<T>::encode(value).prettyText();
  } catch (const JsonError& error) {
    return error;
  }
}

}  // namespace tilwin
