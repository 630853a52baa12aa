#include "core/support/Fatal.h"

#include <cstdio>
#include <cstdlib>

namespace tilwin {

void fatal(std::string_view line) {
  std::fprintf(stderr, "Tilwin: %.*s\n", static_cast<int>(line.size()), line.data());
  std::abort();
}

}  // namespace tilwin
