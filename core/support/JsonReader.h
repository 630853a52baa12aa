#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/support/JsonError.h"
#include "core/support/JsonTree.h"

namespace tilwin {

/// Points at one value in a parsed JSON text (RFC 8259). Cheap to copy: all readers of a text share the
/// ownership of its content. Reading a value as the wrong type throws `JsonError` with the path to the value.
class JsonReader {
public:
  /// Throws `JsonError` if the text is not JSON. A number too large for a double is read as null. If an
  /// object repeats a key, the last value counts.
  [[nodiscard]] static JsonReader parse(std::string_view text);

  [[nodiscard]] bool isNull() const;
  [[nodiscard]] bool isObject() const;
  [[nodiscard]] bool flag() const;
  /// Any number, with or without a fraction.
  [[nodiscard]] double number() const;
  /// A number without a fraction, from `least` to `most`; throws for any other number.
  [[nodiscard]] std::int64_t wholeNumber(std::int64_t least, std::int64_t most) const;
  [[nodiscard]] std::string text() const;
  /// The same as a view, valid as long as any reader of this JSON text exists.
  [[nodiscard]] std::string_view textView() const;
  [[nodiscard]] std::vector<JsonReader> elements() const;
  /// The number of elements of an array.
  [[nodiscard]] std::size_t size() const;
  /// One of them; `index` must be less than `size()`.
  [[nodiscard]] JsonReader element(std::size_t index) const;

  /// The value of a required key; throws if it is absent or null.
  [[nodiscard]] JsonReader member(std::string_view key) const;
  /// The value of an optional key; nothing if it is absent or null.
  [[nodiscard]] std::optional<JsonReader> find(std::string_view key) const;
  /// The keys of an object, sorted.
  [[nodiscard]] std::vector<std::string> keys() const;

  /// Throws a `JsonError` with the path to this value.
  [[noreturn]] void fail(JsonError::Kind kind, const std::string& message) const;

private:
  JsonReader(std::shared_ptr<const JsonTree> tree, const JsonTree::Node& node);
  [[nodiscard]] JsonReader inner(const JsonTree::Node& node) const;

  std::shared_ptr<const JsonTree> tree_;
  const JsonTree::Node* node_;  ///< in `tree_`
};

}  // namespace tilwin
