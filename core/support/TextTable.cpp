#include "core/support/TextTable.h"

#include <algorithm>
#include <cstddef>

#include "core/support/UnicodeText.h"

namespace tilwin {
namespace {

/// Code points: all but the continuation bytes of UTF-8.
std::size_t lengthInColumns(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char each) { return (static_cast<unsigned char>(each) & 0xC0U) != 0x80U; }));
}

}  // namespace

std::string printable(std::string_view text) {
  return UnicodeText::replacingMatches(text, R"([\p{Cc}\s]+)", " ");
}

std::string textTable(std::vector<TableRow> rows, std::string_view indent) {
  std::vector<std::size_t> widths;
  for (TableRow& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t column = 0; column < row.size(); ++column) {
      row[column] = printable(row[column]);
      widths[column] = std::max(widths[column], lengthInColumns(row[column]));
    }
  }
  std::string text;
  for (const TableRow& row : rows) {
    std::string line(indent);
    for (std::size_t column = 0; column < row.size(); ++column) {
      line += row[column] + std::string(widths[column] - lengthInColumns(row[column]) + 2, ' ');
    }
    text += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
  }
  return text;
}

}  // namespace tilwin
