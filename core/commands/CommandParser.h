#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/commands/CommandTable.h"

namespace tilwin {

/// A command with as many arguments as it takes. What they name need not exist.
struct CommandRequest {
  CommandId command = CommandId::help;
  std::vector<std::string> arguments{};
  bool hasOption = false;  ///< that of the command's row

  bool operator==(const CommandRequest&) const = default;
};

/// Why something is no command, in words for the person who typed it, with the nearest right word.
struct Misuse {
  std::string message{};

  bool operator==(const Misuse&) const = default;
};

/// Reads the arguments of `tilwin`, without the program's name, by the table of commands. Text is UTF-8.
struct CommandParser {
  [[nodiscard]] static std::variant<CommandRequest, Misuse> parse(std::span<const std::string> arguments);
  /// Whether this first argument calls for a command, be it one that there is not, and not for the program
  /// itself or one of its modes. Also true for `--help`, `-h` and `--version`.
  [[nodiscard]] static bool isForCommand(std::string_view firstArgument);
  /// "snap ACTION", "get [KEY] [--json]".
  [[nodiscard]] static std::string usage(const CommandSpec& spec);
};

}  // namespace tilwin
