#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/layouts/PhraseParser.h"

namespace tilwin {

/// Finds applications by name for `PhraseParser`. Prepares the names for comparison once, for many queries.
class ApplicationNames {
public:
  /// Keeps a view of the candidates, which must outlive this object and the pointers it returns.
  explicit ApplicationNames(std::span<const PhraseParser::AppCandidate> candidates);

  /// The application that best fits the query, by the rules of `PhraseParser::resolve`; null if there is
  /// none.
  [[nodiscard]] const PhraseParser::AppCandidate* find(std::string_view query) const;

private:
  std::span<const PhraseParser::AppCandidate> candidates_;
  std::vector<std::string> names_;
};

}  // namespace tilwin
