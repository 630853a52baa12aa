#include "core/support/JsonTree.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <nlohmann/json.hpp>
#include <utility>

#include "core/support/ClassicLocale.h"
#include "core/support/JsonError.h"

namespace tilwin {
namespace {

/// nlohmann/json's error id for a number too large for a double.
constexpr int numberOverflow = 406;

/// Uses `strtod` because the library does: both then agree on what overflows.
bool overflows(const std::string& number) {
  char* end = nullptr;
  const double value = std::strtod(number.c_str(), &end);
  return std::isinf(value) && *end == '\0';
}

/// The position after the string literal that starts at `start`, or the end if it is not closed.
std::size_t endOfText(std::string_view json, std::size_t start) {
  for (std::size_t at = start + 1; at < json.size(); ++at) {
    if (json[at] == '\\') {
      ++at;
    } else if (json[at] == '"') {
      return at + 1;
    }
  }
  return json.size();
}

/// Replaces each number too large for a double by null. Invalid JSON stays invalid.
std::string withoutOverflows(std::string_view json) {
  constexpr std::string_view starts = "\"-0123456789";
  constexpr std::string_view ofNumbers = "+-.0123456789Ee";
  std::string result;
  std::size_t at = 0;
  while (at < json.size()) {
    const std::size_t start = std::min(json.find_first_of(starts, at), json.size());
    result += json.substr(at, start - at);
    if (start == json.size()) break;
    const bool isText = json[start] == '"';
    at = isText ? endOfText(json, start) : std::min(json.find_first_not_of(ofNumbers, start), json.size());
    const std::string token(json.substr(start, at - start));
    result += !isText && overflows(token) ? "null" : token;
  }
  return result;
}

}  // namespace

/// Callbacks for nlohmann/json's event-based (SAX) parser; they append each value to the tree.
class JsonTree::Builder final : public nlohmann::json_sax<nlohmann::json> {
public:
  explicit Builder(JsonTree& tree) : tree_(tree) {
    constexpr std::size_t usualMembers = 16;
    inOpen_.reserve(usualMembers);
    opened_.reserve(usualMembers);
  }

  bool read(std::string_view json) { return nlohmann::json::sax_parse(json.begin(), json.end(), this); }
  [[nodiscard]] bool foundOverflow() const { return error_ == numberOverflow; }
  [[noreturn]] void fail() const { throw JsonError(JsonError::Kind::notJson, "", message_); }

  bool null() override { return add({}); }
  bool boolean(bool value) override { return add({.kind = Kind::flag, .flag = value}); }
  bool number_integer(number_integer_t value) override { return add({.whole = value, .kind = Kind::whole}); }
  bool number_unsigned(number_unsigned_t value) override {
    if (value > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()))
      return add({.fraction = static_cast<double>(value), .kind = Kind::fraction});
    return add({.whole = static_cast<std::int64_t>(value), .kind = Kind::whole});
  }
  bool number_float(number_float_t value, const string_t& /*written*/) override {
    return add({.fraction = value, .kind = Kind::fraction});
  }
  bool string(string_t& value) override {
    return add({.size = place(value.size()), .start = keep(value), .kind = Kind::text});
  }
  bool binary(binary_t& /*value*/) override { return false; }
  bool key(string_t& value) override {
    key_ = keep(value);
    keySize_ = place(value.size());
    return true;
  }
  bool start_array(std::size_t /*count*/) override { return open(Kind::array); }
  bool start_object(std::size_t /*count*/) override { return open(Kind::object); }
  bool end_array() override { return close(inOpen_.begin() + firstInOpen()); }
  bool end_object() override {
    const auto first = inOpen_.begin() + firstInOpen();
    const auto precedes = [this](Place one, Place other) { return keyOf(one) < keyOf(other); };
    if (!std::is_sorted(first, inOpen_.end(), precedes)) std::stable_sort(first, inOpen_.end(), precedes);
    // Keeps the last of equal keys: `unique` keeps the first, so it runs backwards.
    const auto kept = std::unique(inOpen_.rbegin(), std::make_reverse_iterator(first),
                                  [this](Place one, Place other) { return keyOf(one) == keyOf(other); });
    return close(kept.base());
  }
  bool parse_error(std::size_t /*position*/, const std::string& /*last*/,
                   const nlohmann::json::exception& error) override {
    error_ = error.id;
    message_ = error.what();
    return false;
  }

private:
  [[nodiscard]] std::string_view keyOf(Place node) const { return tree_.keyOf(tree_.nodes_[node]); }
  [[nodiscard]] std::ptrdiff_t firstInOpen() const {
    return static_cast<std::ptrdiff_t>(opened_.back().firstChild);
  }

  static Place place(std::size_t place) { return static_cast<Place>(place); }

  Place keep(const std::string& text) {
    tree_.texts_ += text;
    return place(tree_.texts_.size() - text.size());
  }

  bool add(Node node) {
    node.key = std::exchange(key_, 0);
    node.keySize = std::exchange(keySize_, 0);
    if (!opened_.empty()) {
      node.parent = opened_.back().node;
      node.index = place(inOpen_.size()) - opened_.back().firstChild;
    }
    inOpen_.push_back(place(tree_.nodes_.size()));
    tree_.nodes_.push_back(node);
    return true;
  }

  bool open(Kind kind) {
    add({.kind = kind});
    opened_.push_back({place(tree_.nodes_.size() - 1), place(inOpen_.size())});
    return true;
  }

  /// Closes the innermost open array or object: its children are those in `inOpen_` from `from` on.
  bool close(std::vector<Place>::iterator from) {
    Node& node = tree_.nodes_[opened_.back().node];
    node.start = place(tree_.children_.size());
    node.size = static_cast<Place>(inOpen_.end() - from);
    tree_.children_.insert(tree_.children_.end(), from, inOpen_.end());
    inOpen_.resize(opened_.back().firstChild);
    opened_.pop_back();
    return true;
  }

  struct Open {
    Place node;
    Place firstChild;  ///< index in `inOpen_`
  };

  JsonTree& tree_;
  std::vector<Place> inOpen_;  ///< children of all open arrays and objects; those of the innermost come last
  std::vector<Open> opened_;
  Place key_ = 0;  ///< key of the next value: its start in `texts_`
  Place keySize_ = 0;
  int error_ = 0;
  std::string message_;
};

JsonTree::JsonTree(std::string_view json) {
  if (json.size() > longest) throw JsonError(JsonError::Kind::notJson, "", "too long");
  constexpr std::size_t usualSizeOfAValue = 12;
  // The library reads numbers with `strtod`, and as decimal point takes the first byte of the locale's.
  const ClassicLocale numbersOfJson;
  nodes_.reserve(json.size() / usualSizeOfAValue + 1);
  texts_.reserve(json.size());
  Builder first(*this);
  if (first.read(json)) return;
  if (!first.foundOverflow()) first.fail();
  // A number that overflows must not make the whole text unreadable, only its own field.
  *this = JsonTree();
  Builder second(*this);
  if (!second.read(withoutOverflows(json))) second.fail();
}

std::string JsonTree::pathTo(const Node& node) const {
  std::vector<std::string> steps;
  for (const Node* each = &node; each != &root(); each = &nodes_[each->parent]) {
    const bool isMember = nodes_[each->parent].kind == Kind::object;
    steps.push_back(isMember ? std::string(keyOf(*each)) : std::to_string(each->index));
  }
  std::reverse(steps.begin(), steps.end());
  std::string path;
  for (const std::string& step : steps) path += (path.empty() ? "" : ".") + step;
  return path;
}

const JsonTree::Node* JsonTree::find(const Node& object, std::string_view key) const {
  const auto first = children_.begin() + static_cast<std::ptrdiff_t>(object.start);
  const auto last = first + static_cast<std::ptrdiff_t>(object.size);
  const auto found = std::lower_bound(first, last, key, [this](Place child, std::string_view wanted) {
    return keyOf(nodes_[child]) < wanted;
  });
  return found != last && keyOf(nodes_[*found]) == key ? &nodes_[*found] : nullptr;
}

}  // namespace tilwin
