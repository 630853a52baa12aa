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
  /// A key or an index, and the way to the value that has it; none around the whole text.
  struct Step;
  using Node = JsonTree::Node;
  JsonReader(std::shared_ptr<const JsonTree> tree, const Node& node, std::shared_ptr<const Step> outer,
             std::string_view key, std::size_t index);

  [[nodiscard]] std::shared_ptr<const Step> step() const;
  [[nodiscard]] JsonReader inner(const Node& node, std::string_view key, std::size_t index) const;
  [[nodiscard]] std::string path() const;

  std::shared_ptr<const JsonTree> tree_;
  const Node* node_;                         ///< in the tree
  std::shared_ptr<const Step> outer_;        ///< null at the top
  std::string_view key_;                     ///< lives in the tree
  std::size_t index_;                        ///< counts where there is no key
  mutable std::shared_ptr<const Step> own_;  ///< made when the first inner value needs it
};

}  // namespace tilwin
