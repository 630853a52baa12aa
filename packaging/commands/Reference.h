#pragma once

#include <string>

namespace tilwin {

/// The page of docs that explains every command, in Markdown.
[[nodiscard]] std::string commandReference();

}  // namespace tilwin
