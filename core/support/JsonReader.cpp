#include "core/support/JsonReader.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <utility>

#include "core/support/JsonSource.h"

namespace tilwin {
namespace {

/// Objects by key: with keys in the order written, reading n of them would take n squared.
using Node = nlohmann::json;

/// What the library calls a number that no double can hold.
constexpr int numberOverflow = 406;

const Node& nodeAt(const std::shared_ptr<const void>& place) {
  return *static_cast<const Node*>(place.get());
}

std::string extended(const std::string& path, std::string_view step) {
  return path.empty() ? std::string(step) : path + "." + std::string(step);
}

/// The value as a signed whole number, if it is one. 2^63 is the first float beyond them.
std::optional<std::int64_t> whole(const Node& node) {
  if (node.is_number_unsigned()) {
    const auto value = node.get<std::uint64_t>();
    if (value > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) return std::nullopt;
    return static_cast<std::int64_t>(value);
  }
  if (node.is_number_integer()) return node.get<std::int64_t>();
  const auto value = node.get<double>();
  if (value != std::trunc(value) || value < -0x1p63 || value >= 0x1p63) return std::nullopt;
  return static_cast<std::int64_t>(value);
}

/// One number too large must not cost the whole text: it becomes null, so that only its own field is without
/// a value.
Node parsed(std::string_view json) {
  try {
    return Node::parse(json);
  } catch (const Node::out_of_range& error) {
    if (error.id != numberOverflow) throw;
    return Node::parse(JsonSource::withoutOverflows(json));
  }
}

}  // namespace

struct JsonReader::Step {
  std::shared_ptr<const Step> outer;
  std::string_view key;
  std::size_t index;
};

JsonReader::JsonReader(std::shared_ptr<const void> node, std::shared_ptr<const Step> outer,
                       std::string_view key, std::size_t index)
    : node_(std::move(node)), outer_(std::move(outer)), key_(key), index_(index) {}

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

JsonReader JsonReader::inner(const void* node, std::string_view key, std::size_t index) const {
  return {std::shared_ptr<const void>(node_, node), step(), key, index};
}

JsonReader JsonReader::parse(std::string_view text) {
  try {
    return {std::make_shared<const Node>(parsed(JsonSource::withSingleBlanks(text))), nullptr, {}, 0};
  } catch (const Node::exception& error) {
    throw JsonError(JsonError::Kind::notJson, "", error.what());
  }
}

void JsonReader::fail(JsonError::Kind kind, const std::string& message) const {
  throw JsonError(kind, path(), message);
}

bool JsonReader::isNull() const { return nodeAt(node_).is_null(); }

bool JsonReader::isObject() const { return nodeAt(node_).is_object(); }

bool JsonReader::flag() const {
  if (!nodeAt(node_).is_boolean()) fail(JsonError::Kind::wrongType, "true or false expected");
  return nodeAt(node_).get<bool>();
}

double JsonReader::number() const {
  if (!nodeAt(node_).is_number()) fail(JsonError::Kind::wrongType, "a number expected");
  return nodeAt(node_).get<double>();
}

std::int64_t JsonReader::wholeNumber(std::int64_t least, std::int64_t most) const {
  if (!nodeAt(node_).is_number()) fail(JsonError::Kind::wrongType, "a number expected");
  const auto value = whole(nodeAt(node_));
  if (!value || *value < least || *value > most) {
    fail(JsonError::Kind::badValue,
         "a whole number from " + std::to_string(least) + " to " + std::to_string(most) + " expected");
  }
  return *value;
}

std::string JsonReader::text() const {
  if (!nodeAt(node_).is_string()) fail(JsonError::Kind::wrongType, "text expected");
  return nodeAt(node_).get<std::string>();
}

std::size_t JsonReader::size() const {
  if (!nodeAt(node_).is_array()) fail(JsonError::Kind::wrongType, "an array expected");
  return nodeAt(node_).size();
}

JsonReader JsonReader::element(std::size_t index) const { return inner(&nodeAt(node_)[index], {}, index); }

std::vector<JsonReader> JsonReader::elements() const {
  std::vector<JsonReader> result;
  for (std::size_t index = 0; index < size(); ++index) result.push_back(element(index));
  return result;
}

std::optional<JsonReader> JsonReader::find(std::string_view key) const {
  const Node& node = nodeAt(node_);
  if (!node.is_object()) fail(JsonError::Kind::wrongType, "an object expected");
  const auto found = node.find(key);
  if (found == node.end() || found->is_null()) return std::nullopt;
  return inner(&*found, found.key(), 0);
}

JsonReader JsonReader::member(std::string_view key) const {
  auto found = find(key);
  if (!found) {
    throw JsonError(JsonError::Kind::missingKey, extended(path(), key), "a value expected, nothing there");
  }
  return *std::move(found);
}

std::vector<std::string> JsonReader::keys() const {
  const Node& node = nodeAt(node_);
  if (!node.is_object()) fail(JsonError::Kind::wrongType, "an object expected");
  std::vector<std::string> result;
  for (const auto& item : node.items()) result.push_back(item.key());
  return result;
}

}  // namespace tilwin
