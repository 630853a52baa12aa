#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tilwin {

/// A JSON value (RFC 8259) being built for writing. Owns all values put into it.
class JsonValue {
public:
  [[nodiscard]] static JsonValue object();
  [[nodiscard]] static JsonValue array();
  [[nodiscard]] static JsonValue of(bool flag);
  [[nodiscard]] static JsonValue of(std::int64_t number);
  /// Throws `JsonError` for infinities and NaN, which JSON cannot express.
  [[nodiscard]] static JsonValue of(double number);
  [[nodiscard]] static JsonValue of(std::string_view text);

  JsonValue(JsonValue&&) noexcept;
  JsonValue& operator=(JsonValue&&) noexcept;
  JsonValue(const JsonValue&) = delete;
  JsonValue& operator=(const JsonValue&) = delete;
  ~JsonValue();

  /// For objects: keys are written in the order they were set. Each key may be set only once.
  void set(std::string_view key, JsonValue value);
  /// For arrays.
  void append(JsonValue value);

  /// Compact text. Numbers read back to the same bits; whole numbers have no decimal point. Invalid UTF-8 is
  /// written as U+FFFD.
  [[nodiscard]] std::string text() const;
  /// The same for people to read: one value per line, indented by two spaces, keys sorted.
  [[nodiscard]] std::string prettyText() const;

private:
  struct Node;
  explicit JsonValue(Node&& node);

  std::unique_ptr<Node> node_;
};

}  // namespace tilwin
