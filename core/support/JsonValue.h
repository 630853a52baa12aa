#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tilwin {

/// A JSON value being built for writing.
class JsonValue {
public:
  [[nodiscard]] static JsonValue object();
  [[nodiscard]] static JsonValue array();
  [[nodiscard]] static JsonValue of(bool flag);
  [[nodiscard]] static JsonValue of(std::int64_t number);
  /// Throws `JsonError` for what JSON cannot express: an infinity or what is not a number.
  [[nodiscard]] static JsonValue of(double number);
  [[nodiscard]] static JsonValue of(std::string_view text);

  JsonValue(JsonValue&&) noexcept;
  JsonValue& operator=(JsonValue&&) noexcept;
  JsonValue(const JsonValue&) = delete;
  JsonValue& operator=(const JsonValue&) = delete;
  ~JsonValue();

  /// For an object: keys are written in the order set. Each may be set once only.
  void set(std::string_view key, JsonValue value);
  /// For an array.
  void append(JsonValue value);

  /// Compact text. Numbers read back to the same bits, whole ones without a decimal point. What is not UTF-8
  /// is written as U+FFFD.
  [[nodiscard]] std::string text() const;
  /// The same for people: a line per value, indented by two spaces, the keys of every object sorted.
  [[nodiscard]] std::string prettyText() const;

private:
  struct Node;
  explicit JsonValue(Node&& node);

  std::unique_ptr<Node> node_;
};

}  // namespace tilwin
