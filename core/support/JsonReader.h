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

/// One place in a JSON text that has been read. Cheap to copy; the text's content lives as long as any reader
/// of it does. Every reading function throws `JsonError` when something else stands there.
class JsonReader {
public:
  /// A number that no double can hold is read as null. Of a key that an object has twice, the last counts.
  [[nodiscard]] static JsonReader parse(std::string_view text);

  [[nodiscard]] bool isNull() const;
  [[nodiscard]] bool isObject() const;
  [[nodiscard]] bool flag() const;
  /// Any number, with a fraction or without.
  [[nodiscard]] double number() const;
  /// A number without a fraction, within the bounds.
  [[nodiscard]] std::int64_t wholeNumber(std::int64_t least, std::int64_t most) const;
  [[nodiscard]] std::string text() const;
  /// The same, for as long as the reader lives.
  [[nodiscard]] std::string_view textView() const;
  [[nodiscard]] std::vector<JsonReader> elements() const;
  /// How many elements an array has, and one of them.
  [[nodiscard]] std::size_t size() const;
  [[nodiscard]] JsonReader element(std::size_t index) const;

  /// The value under a key that must be there.
  [[nodiscard]] JsonReader member(std::string_view key) const;
  /// The value under a key that may be absent or null.
  [[nodiscard]] std::optional<JsonReader> find(std::string_view key) const;
  /// The keys of an object, sorted.
  [[nodiscard]] std::vector<std::string> keys() const;

  [[noreturn]] void fail(JsonError::Kind kind, const std::string& message) const;

private:
  JsonReader(std::shared_ptr<const JsonTree> tree, const JsonTree::Node& node);
  [[nodiscard]] JsonReader inner(const JsonTree::Node& node) const;

  std::shared_ptr<const JsonTree> tree_;
  const JsonTree::Node* node_;  ///< in the tree
};

}  // namespace tilwin
