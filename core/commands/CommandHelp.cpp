#include "core/commands/CommandHelp.h"

#include <algorithm>

#include "core/commands/CommandParser.h"

namespace tilwin {
namespace {

constexpr std::string_view indent = "  ";
constexpr std::size_t lineWidth = 80;

std::size_t widestUsage() {
  std::size_t widest = 0;
  for (const CommandSpec& spec : CommandTable::all())
    widest = std::max(widest, CommandParser::usage(spec).size());
  return widest;
}

/// Lines of at most `lineWidth` bytes, each indented.
std::string wrapped(std::string_view text) {
  std::string result;
  std::size_t used = 0;
  while (!text.empty()) {
    const auto end = std::min(text.find(' '), text.size());
    const bool fits = used > 0 && used + 1 + end <= lineWidth;
    if (!fits) {
      result.append(result.empty() ? "" : "\n").append(indent);
      used = indent.size();
    } else {
      result += ' ';
      ++used;
    }
    result += text.substr(0, end);
    used += end;
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return result + "\n";
}

}  // namespace

std::string CommandHelp::overview() {
  const std::size_t width = widestUsage();
  std::string text =
      "Usage: tilwin [COMMAND ...]\n\n"
      "Without a command, Tilwin starts; if it runs already, its settings open.\n\n";
  for (const CommandSpec& spec : CommandTable::all()) {
    std::string usage = CommandParser::usage(spec);
    usage.resize(width, ' ');
    text.append(indent).append(usage).append(indent).append(spec.summary).append("\n");
  }
  return text + "\n\"tilwin help COMMAND\" explains one of them; \"man tilwin\" all.\n";
}

std::string CommandHelp::about(std::string_view words) {
  std::string text;
  for (const CommandSpec& spec : CommandTable::all()) {
    if (spec.words != words && CommandTable::group(spec) != words) continue;
    text += (text.empty() ? "" : "\n") + about(spec);
  }
  return text;
}

std::string CommandHelp::about(const CommandSpec& spec) {
  std::string text = "tilwin " + CommandParser::usage(spec) + "\n";
  text += wrapped(std::string(spec.summary) + ".");
  if (!spec.details.empty()) text += wrapped(spec.details);
  if (!spec.option.word.empty())
    text += wrapped(std::string(spec.option.word) + ": " + std::string(spec.option.summary));
  if (spec.reach == CommandReach::instance) text += wrapped("Tilwin must be running.");
  if (!spec.example.empty()) text += wrapped("Example: tilwin " + std::string(spec.example));
  return text;
}

}  // namespace tilwin
