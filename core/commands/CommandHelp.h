#pragma once

#include <string>
#include <string_view>

#include "core/commands/CommandTable.h"

namespace tilwin {

/// What `tilwin help` prints.
struct CommandHelp {
  /// All commands, a line each.
  [[nodiscard]] static std::string overview();
  /// One command; those of a group, such as "layout", one after the other. Empty if there is none.
  [[nodiscard]] static std::string about(std::string_view words);
  [[nodiscard]] static std::string about(const CommandSpec& spec);
};

}  // namespace tilwin
