#pragma once

#include <ostream>

#include "core/layouts/PhraseParser.h"
#include "tests/core/Arbitrary.h"

namespace tilwin {

using Clauses = std::vector<PhraseParser::Clause>;
using Texts = std::vector<std::string>;

inline std::ostream& operator<<(std::ostream& out, const PhraseParser::Clause& clause) {
  return out << '"' << clause.appQuery << "\" " << clause.action;
}

inline std::ostream& operator<<(std::ostream& out, const PhraseParser::Result& result) {
  return out << testing::PrintToString(result.clauses) << " but not "
             << testing::PrintToString(result.unreadable);
}

inline std::ostream& operator<<(std::ostream& out, const PhraseParser::AppCandidate& candidate) {
  return out << candidate.name;
}

}  // namespace tilwin
