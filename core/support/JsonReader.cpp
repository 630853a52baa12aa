#include "core/support/JsonReader.h"

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <utility>

namespace tilwin {
namespace {

using Node = nlohmann::ordered_json;

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

}  // namespace

JsonReader::JsonReader(std::shared_ptr<const void> node, std::string path)
    : node_(std::move(node)), path_(std::move(path)) {}

JsonReader JsonReader::parse(std::string_view text) {
  try {
    return {std::make_shared<const Node>(Node::parse(text)), ""};
  } catch (const Node::exception& error) {
    throw JsonError(JsonError::Kind::notJson, "", error.what());
  }
}

void JsonReader::fail(JsonError::Kind kind, const std::string& message) const {
  throw JsonError(kind, path_, message);
}

bool JsonReader::isNull() const { return nodeAt(node_).is_null(); }

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

std::vector<JsonReader> JsonReader::elements() const {
  if (!nodeAt(node_).is_array()) fail(JsonError::Kind::wrongType, "an array expected");
  std::vector<JsonReader> result;
  for (const Node& element : nodeAt(node_)) {
    result.push_back(JsonReader({node_, &element}, extended(path_, std::to_string(result.size()))));
  }
  return result;
}

std::optional<JsonReader> JsonReader::find(std::string_view key) const {
  const Node& node = nodeAt(node_);
  if (!node.is_object()) fail(JsonError::Kind::wrongType, "an object expected");
  const auto found = node.find(std::string(key));
  if (found == node.end() || found->is_null()) return std::nullopt;
  return JsonReader({node_, &*found}, extended(path_, key));
}

JsonReader JsonReader::member(std::string_view key) const {
  auto found = find(key);
  if (!found) {
    throw JsonError(JsonError::Kind::missingKey, extended(path_, key), "a value expected, nothing there");
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
