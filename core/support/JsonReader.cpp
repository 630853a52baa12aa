#include "core/support/JsonReader.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "core/support/JsonSource.h"
#include "core/support/JsonTree.h"

namespace tilwin {
namespace {

using Kind = JsonTree::Kind;

std::string extended(const std::string& path, std::string_view step) {
  return path.empty() ? std::string(step) : path + "." + std::string(step);
}

bool isNumber(const JsonTree::Node& node) {
  return node.kind == Kind::whole || node.kind == Kind::large || node.kind == Kind::fraction;
}

/// The value as a signed whole number, if it is one. 2^63 is the first float beyond them.
std::optional<std::int64_t> whole(const JsonTree::Node& node) {
  if (node.kind == Kind::whole) return node.whole;
  if (node.kind == Kind::large) {
    if (node.large > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()))
      return std::nullopt;
    return static_cast<std::int64_t>(node.large);
  }
  const double value = node.fraction;
  if (value != std::trunc(value) || value < -0x1p63 || value >= 0x1p63) return std::nullopt;
  return static_cast<std::int64_t>(value);
}

double asDouble(const JsonTree::Node& node) {
  if (node.kind == Kind::whole) return static_cast<double>(node.whole);
  return node.kind == Kind::large ? static_cast<double>(node.large) : node.fraction;
}

}  // namespace

struct JsonReader::Step {
  std::shared_ptr<const Step> outer;
  std::string_view key;
  std::size_t index;
};

JsonReader::JsonReader(std::shared_ptr<const JsonTree> tree, const Node& node,
                       std::shared_ptr<const Step> outer, std::string_view key, std::size_t index)
    : tree_(std::move(tree)), node_(&node), outer_(std::move(outer)), key_(key), index_(index) {}

/// Paths are put together only for errors: most values are read without one.
std::string JsonReader::path() const {
  std::vector<std::string> steps;
  for (const Step* each = step().get(); each->outer != nullptr; each = each->outer.get())
    steps.push_back(each->key.data() == nullptr ? std::to_string(each->index) : std::string(each->key));
  std::reverse(steps.begin(), steps.end());
  std::string result;
  for (const std::string& each : steps) result = extended(result, each);
  return result;
}

std::shared_ptr<const JsonReader::Step> JsonReader::step() const {
  if (!own_) own_ = std::make_shared<const Step>(Step{outer_, key_, index_});
  return own_;
}

JsonReader JsonReader::inner(const Node& node, std::string_view key, std::size_t index) const {
  return {tree_, node, step(), key, index};
}

JsonReader JsonReader::parse(std::string_view text) {
  // On one line there is little to gain by leaving blanks out first.
  const bool isOneLine = text.find('\n') == std::string_view::npos;
  auto tree = std::make_shared<const JsonTree>(isOneLine ? text : JsonSource::withSingleBlanks(text));
  const Node& root = tree->root();
  return {std::move(tree), root, nullptr, {}, 0};
}

void JsonReader::fail(JsonError::Kind kind, const std::string& message) const {
  throw JsonError(kind, path(), message);
}

bool JsonReader::isNull() const { return node_->kind == Kind::null; }

bool JsonReader::isObject() const { return node_->kind == Kind::object; }

bool JsonReader::flag() const {
  if (node_->kind != Kind::flag) fail(JsonError::Kind::wrongType, "true or false expected");
  return node_->flag;
}

double JsonReader::number() const {
  if (!isNumber(*node_)) fail(JsonError::Kind::wrongType, "a number expected");
  return asDouble(*node_);
}

std::int64_t JsonReader::wholeNumber(std::int64_t least, std::int64_t most) const {
  if (!isNumber(*node_)) fail(JsonError::Kind::wrongType, "a number expected");
  const auto value = whole(*node_);
  if (!value || *value < least || *value > most) {
    fail(JsonError::Kind::badValue,
         "a whole number from " + std::to_string(least) + " to " + std::to_string(most) + " expected");
  }
  return *value;
}

std::string JsonReader::text() const {
  if (node_->kind != Kind::text) fail(JsonError::Kind::wrongType, "text expected");
  return std::string(tree_->textOf(*node_));
}

std::size_t JsonReader::size() const {
  if (node_->kind != Kind::array) fail(JsonError::Kind::wrongType, "an array expected");
  return node_->childCount;
}

JsonReader JsonReader::element(std::size_t index) const {
  return inner(tree_->child(*node_, index), {}, index);
}

std::vector<JsonReader> JsonReader::elements() const {
  std::vector<JsonReader> result;
  for (std::size_t index = 0; index < size(); ++index) result.push_back(element(index));
  return result;
}

std::optional<JsonReader> JsonReader::find(std::string_view key) const {
  if (!isObject()) fail(JsonError::Kind::wrongType, "an object expected");
  const Node* const found = tree_->find(*node_, key);
  if (found == nullptr || found->kind == Kind::null) return std::nullopt;
  return inner(*found, tree_->keyOf(*found), 0);
}

JsonReader JsonReader::member(std::string_view key) const {
  auto found = find(key);
  if (!found) {
    throw JsonError(JsonError::Kind::missingKey, extended(path(), key), "a value expected, nothing there");
  }
  return *std::move(found);
}

std::vector<std::string> JsonReader::keys() const {
  if (!isObject()) fail(JsonError::Kind::wrongType, "an object expected");
  std::vector<std::string> result;
  result.reserve(node_->childCount);
  for (std::size_t index = 0; index < node_->childCount; ++index)
    result.emplace_back(tree_->keyOf(tree_->child(*node_, index)));
  return result;
}

}  // namespace tilwin
