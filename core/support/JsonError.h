#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace tilwin {

/// Why reading JSON or writing a value as JSON failed. Thrown by the coding functions; `decodeJson` and
/// `encodeJson` catch it and return it as a result.
class JsonError : public std::runtime_error {
public:
  enum class Kind {
    notJson,     ///< the text is not valid JSON
    missingKey,  ///< a required key is absent
    wrongType,   ///< a value of another JSON type, such as text instead of a number
    badValue,    ///< the right type, but out of range or unknown
  };

  /// `where` is the path of keys and indexes to the faulty value, such as "slots.2.rect"; empty for the root.
  JsonError(Kind why, std::string where, const std::string& message)
      : std::runtime_error(where.empty() ? message : where + ": " + message),
        kind(why),
        path(std::move(where)) {}

  Kind kind;
  std::string path;
};

}  // namespace tilwin
