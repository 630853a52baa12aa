#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "core/support/JsonCoding.h"

/// Reads and writes JSON in tests; errors fail the test.

namespace tilwin {

template <typename T>
T read(std::string_view text) {
  const auto result = decodeJson<T>(text);
  if (const auto* error = std::get_if<JsonError>(&result)) ADD_FAILURE() << error->what();
  return std::holds_alternative<T>(result) ? std::get<T>(result) : T{};
}

template <typename T>
std::optional<JsonError> errorOf(std::string_view text) {
  const auto result = decodeJson<T>(text);
  const auto* error = std::get_if<JsonError>(&result);
  return error == nullptr ? std::nullopt : std::optional(*error);
}

template <typename T>
void expectError(std::string_view text, JsonError::Kind kind, const std::string& path) {
  const auto error = errorOf<T>(text);
  ASSERT_TRUE(error.has_value()) << text;
  EXPECT_EQ(error->kind, kind) << error->what();
  EXPECT_EQ(error->path, path) << error->what();
  EXPECT_STRNE(error->what(), "");
}

template <typename T>
std::string written(const T& value) {
  const auto result = encodeJson(value);
  if (const auto* error = std::get_if<JsonError>(&result)) ADD_FAILURE() << error->what();
  return std::holds_alternative<std::string>(result) ? std::get<std::string>(result) : "";
}

}  // namespace tilwin
