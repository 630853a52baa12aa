#include "core/support/JsonValue.h"

#include <cmath>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

#include "core/support/JsonError.h"

namespace tilwin {

struct JsonValue::Node {
  nlohmann::ordered_json json;
};

namespace {

/// Up to 2^53 every integer is a double, so a whole number written without a decimal point reads back
/// exactly.
constexpr double largestExactWhole = 0x1p53;

bool isWrittenWhole(double number) {
  const bool negativeZero = number == 0 && std::signbit(number);
  return number == std::trunc(number) && std::abs(number) <= largestExactWhole && !negativeZero;
}

using Members = nlohmann::ordered_json::object_t;

}  // namespace

JsonValue::JsonValue(Node&& node) : node_(std::make_unique<Node>(std::move(node))) {}
JsonValue::JsonValue(JsonValue&&) noexcept = default;
JsonValue& JsonValue::operator=(JsonValue&&) noexcept = default;
JsonValue::~JsonValue() = default;

JsonValue JsonValue::object() {
  constexpr std::size_t usualMembers = 6;
  auto json = nlohmann::ordered_json::object();
  json.get_ref<Members&>().reserve(usualMembers);
  return JsonValue(Node{std::move(json)});
}

JsonValue JsonValue::array() { return JsonValue(Node{nlohmann::ordered_json::array()}); }

JsonValue JsonValue::of(bool flag) { return JsonValue(Node{flag}); }

JsonValue JsonValue::of(std::int64_t number) { return JsonValue(Node{number}); }

JsonValue JsonValue::of(double number) {
  if (!std::isfinite(number)) throw JsonError(JsonError::Kind::badValue, "", "not a finite number");
  if (isWrittenWhole(number)) return of(static_cast<std::int64_t>(number));
  return JsonValue(Node{number});
}

JsonValue JsonValue::of(std::string_view text) { return JsonValue(Node{std::string(text)}); }

void JsonValue::set(std::string_view key, JsonValue value) {
  // Appends directly: the map's own insertion would first compare the key with all others.
  auto& members = node_->json.get_ref<nlohmann::ordered_json::object_t&>();
  members.emplace_back(std::string(key), std::move(value.node_->json));
}

void JsonValue::append(JsonValue value) { node_->json.push_back(std::move(value.node_->json)); }

std::string JsonValue::text() const {
  return node_->json.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

std::string JsonValue::prettyText() const {
  const nlohmann::json sorted(node_->json);
  return sorted.dump(2, ' ', false, nlohmann::json::error_handler_t::replace);
}

}  // namespace tilwin
