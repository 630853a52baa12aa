#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tilwin {

using TableRow = std::vector<std::string>;

/// Text of another program as part of a line: what would end the line or command a terminal becomes a space.
[[nodiscard]] std::string printable(std::string_view text);
/// Rows as lines, each begun by `indent`. Columns are as wide as their widest cell; the last has no end.
[[nodiscard]] std::string textTable(std::vector<TableRow> rows, std::string_view indent = {});

}  // namespace tilwin
