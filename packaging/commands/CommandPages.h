#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tilwin {

/// A file that is made from the table of commands and kept in the source tree.
struct CommandPage {
  std::string_view path;  ///< from the root of the source tree
  std::string (*make)();  ///< its content
};

/// The man page, the completions of three shells, and the reference in docs.
struct CommandPages {
  [[nodiscard]] static std::span<const CommandPage> all();
};

}  // namespace tilwin
