#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace tilwin {

/// The values of one JSON text (RFC 8259), in few blocks of memory: a text of many small objects would
/// otherwise take most of its time for making and freeing them.
class JsonTree {
public:
  enum class Kind : std::uint8_t { null, flag, whole, fraction, text, array, object };

  /// Small, as there are many: a text is at most `longest`, so its places fit 32 bits.
  using Place = std::uint32_t;
  static constexpr std::size_t longest = std::numeric_limits<Place>::max();

  struct Node {
    std::int64_t whole = 0;  ///< a number written without a fraction, if it is one that fits
    double fraction = 0;     ///< any other number
    Place size = 0;          ///< bytes of a text, or values in an array or object
    Place start = 0;         ///< where the tree keeps these
    Place key = 0;           ///< where it keeps the key of a member
    Place keySize = 0;
    Place parent = 0;  ///< number of the node it is in; the root is in itself
    Place index = 0;   ///< among the parent's values, as they came
    Kind kind = Kind::null;
    bool flag = false;
  };

  /// Throws `JsonError` for what is not JSON. A number that no double can hold is read as null.
  explicit JsonTree(std::string_view json);

  [[nodiscard]] const Node& root() const { return nodes_.front(); }
  [[nodiscard]] std::string_view textOf(const Node& node) const { return kept(node.start, node.size); }
  /// The key of a member of an object.
  [[nodiscard]] std::string_view keyOf(const Node& node) const { return kept(node.key, node.keySize); }
  /// Of an array in order; of an object by key, and of a key that comes twice the last only.
  [[nodiscard]] const Node& child(const Node& of, std::size_t index) const {
    return nodes_[children_[of.start + index]];
  }
  /// The keys and indexes that lead to the value, such as "slots.2.rect"; empty for the root.
  [[nodiscard]] std::string pathTo(const Node& node) const;
  /// The value under a key of an object; null when there is none.
  [[nodiscard]] const Node* find(const Node& object, std::string_view key) const;

private:
  class Builder;
  JsonTree() = default;

  [[nodiscard]] std::string_view kept(std::size_t start, std::size_t size) const {
    return std::string_view(texts_).substr(start, size);
  }

  std::vector<Node> nodes_;  ///< the root first
  std::vector<Place> children_;
  std::string texts_;
};

}  // namespace tilwin
