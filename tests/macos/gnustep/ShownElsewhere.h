#pragma once

#include <string>
#include <vector>

namespace tilwin::macos {

/// What this process asked other programs to show: NSWorkspace opens and selects nothing here.
struct ShownElsewhere {
  std::vector<std::string> opened{};    ///< addresses
  std::vector<std::string> selected{};  ///< addresses of files
  bool canOpen = true;                  ///< whether there is a program for each address
};

[[nodiscard]] ShownElsewhere& shownElsewhere();

}  // namespace tilwin::macos
