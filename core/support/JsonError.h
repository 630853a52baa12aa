#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace tilwin {

/// Why a JSON text or a part of it could not be read, or a value not be written. Thrown between the coding
/// functions only; whoever reads or writes a whole text gets it as a result.
class JsonError : public std::runtime_error {
public:
  enum class Kind {
    notJson,     ///< the text as a whole
    missingKey,  ///< a required key is absent
    wrongType,   ///< another kind of value stands there
    badValue,    ///< the right kind of value, but not one that can be taken
  };

  /// `where` is the keys and indexes that lead to the fault, such as "slots.2.rect"; empty at the top.
  JsonError(Kind why, std::string where, const std::string& message)
      : std::runtime_error(where.empty() ? message : where + ": " + message),
        kind(why),
        path(std::move(where)) {}

  Kind kind;
  std::string path;
};

}  // namespace tilwin
