#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tilwin {

/// The values of one JSON text (RFC 8259), in few blocks of memory: a text of many small objects would
/// otherwise take most of its time for making and freeing them.
class JsonTree {
public:
  enum class Kind : std::uint8_t { null, flag, whole, large, fraction, text, array, object };

  struct Node {
    Kind kind = Kind::null;
    bool flag = false;
    std::int64_t whole = 0;   ///< for `whole`
    std::uint64_t large = 0;  ///< for `large`: a whole number that may be beyond the signed ones
    double fraction = 0;
    // Places in what the tree keeps.
    std::size_t text = 0;
    std::size_t textSize = 0;
    std::size_t key = 0;
    std::size_t keySize = 0;
    std::size_t children = 0;
    std::size_t childCount = 0;
  };

  /// Throws `JsonError` for what is not JSON. A number that no double can hold is read as null.
  explicit JsonTree(std::string_view json);

  [[nodiscard]] const Node& root() const { return nodes_.front(); }
  [[nodiscard]] std::string_view textOf(const Node& node) const { return kept(node.text, node.textSize); }
  /// The key of a member of an object.
  [[nodiscard]] std::string_view keyOf(const Node& node) const { return kept(node.key, node.keySize); }
  /// Of an array in order; of an object by key, and of a key that comes twice the last only.
  [[nodiscard]] const Node& child(const Node& of, std::size_t index) const {
    return nodes_[children_[of.children + index]];
  }
  /// The value under a key of an object; null when there is none.
  [[nodiscard]] const Node* find(const Node& object, std::string_view key) const;

private:
  class Builder;
  JsonTree() = default;

  [[nodiscard]] std::string_view kept(std::size_t start, std::size_t size) const {
    return std::string_view(texts_).substr(start, size);
  }

  std::vector<Node> nodes_;  ///< the root first
  std::vector<std::size_t> children_;
  std::string texts_;
};

}  // namespace tilwin
