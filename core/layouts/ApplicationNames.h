#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/layouts/PhraseParser.h"

namespace tilwin {

/// Applications that can be asked for by name, their names made comparable once, however many queries follow.
class ApplicationNames {
public:
  /// The candidates must outlive this object and what it finds.
  explicit ApplicationNames(std::span<const PhraseParser::AppCandidate> candidates);

  /// The one meant, as `PhraseParser::resolve` says; null when there is none.
  [[nodiscard]] const PhraseParser::AppCandidate* find(std::string_view query) const;

private:
  std::span<const PhraseParser::AppCandidate> candidates_;
  std::vector<std::string> names_;
};

}  // namespace tilwin
