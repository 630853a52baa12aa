#include "core/support/JsonReader.h"

#include <cmath>
#include <limits>
#include <utility>

#include "core/support/JsonTree.h"

namespace tilwin {
namespace {

using Kind = JsonTree::Kind;

bool isNumber(const JsonTree::Node& node) { return node.kind == Kind::whole || node.kind == Kind::fraction; }

/// The value as a signed 64-bit integer, if it is one. 2^63 is the first double above their range.
std::optional<std::int64_t> whole(const JsonTree::Node& node) {
  if (node.kind == Kind::whole) return node.whole;
  const double value = node.fraction;
  if (value != std::trunc(value) || value < -0x1p63 || value >= 0x1p63) return std::nullopt;
  return static_cast<std::int64_t>(value);
}

}  // namespace

JsonReader::JsonReader(std::shared_ptr<const JsonTree> tree, const JsonTree::Node& node)
    : tree_(std::move(tree)), node_(&node) {}

JsonReader JsonReader::inner(const JsonTree::Node& node) const { return {tree_, node}; }

JsonReader JsonReader::parse(std::string_view text) {
  auto tree = std::make_shared<const JsonTree>(text);
  const JsonTree::Node& root = tree->root();
  return {std::move(tree), root};
}

void JsonReader::fail(JsonError::Kind kind, const std::string& message) const {
  throw JsonError(kind, tree_->pathTo(*node_), message);
}

bool JsonReader::isNull() const { return node_->kind == Kind::null; }

bool JsonReader::isObject() const { return node_->kind == Kind::object; }

bool JsonReader::flag() const {
  if (node_->kind != Kind::flag) fail(JsonError::Kind::wrongType, "true or false expected");
  return node_->flag;
}

double JsonReader::number() const {
  if (!isNumber(*node_)) fail(JsonError::Kind::wrongType, "a number expected");
  return node_->kind == Kind::whole ? static_cast<double>(node_->whole) : node_->fraction;
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

std::string JsonReader::text() const { return std::string(textView()); }

std::string_view JsonReader::textView() const {
  if (node_->kind != Kind::text) fail(JsonError::Kind::wrongType, "text expected");
  return tree_->textOf(*node_);
}

std::size_t JsonReader::size() const {
  if (node_->kind != Kind::array) fail(JsonError::Kind::wrongType, "an array expected");
  return node_->size;
}

JsonReader JsonReader::element(std::size_t index) const { return inner(tree_->child(*node_, index)); }

std::vector<JsonReader> JsonReader::elements() const {
  std::vector<JsonReader> result;
  for (std::size_t index = 0; index < size(); ++index) result.push_back(element(index));
  return result;
}

std::optional<JsonReader> JsonReader::find(std::string_view key) const {
  if (!isObject()) fail(JsonError::Kind::wrongType, "an object expected");
  const auto* const found = tree_->find(*node_, key);
  if (found == nullptr || found->kind == Kind::null) return std::nullopt;
  return inner(*found);
}

JsonReader JsonReader::member(std::string_view key) const {
  auto found = find(key);
  if (!found) {
    const std::string path = tree_->pathTo(*node_);
    throw JsonError(JsonError::Kind::missingKey, (path.empty() ? "" : path + ".") + std::string(key),
                    "a value expected, nothing there");
  }
  return *std::move(found);
}

std::vector<std::string> JsonReader::keys() const {
  if (!isObject()) fail(JsonError::Kind::wrongType, "an object expected");
  std::vector<std::string> result;
  result.reserve(node_->size);
  for (std::size_t index = 0; index < node_->size; ++index)
    result.emplace_back(tree_->keyOf(tree_->child(*node_, index)));
  return result;
}

}  // namespace tilwin
