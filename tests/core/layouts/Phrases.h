#pragma once

#include <string>
#include <vector>

#include "core/layouts/PhraseParser.h"

namespace tilwin {

using Clauses = std::vector<PhraseParser::Clause>;
using Texts = std::vector<std::string>;

}  // namespace tilwin
