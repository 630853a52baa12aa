#pragma once

#include <string>
#include <utility>

#include "core/commands/CommandTable.h"

namespace tilwin {

/// What became of a command: what its process prints, and its exit status.
struct CommandReply {
  int status = exit_status::done;
  std::string output{};     ///< for standard output; whole lines
  std::string problem{};    ///< for standard error; whole lines
  bool isWatching = false;  ///< not the end: lines follow, and the status comes when the instance ends

  bool operator==(const CommandReply&) const = default;

  [[nodiscard]] static CommandReply done(std::string output = {}) { return {.output = std::move(output)}; }
  /// `problem` is a sentence.
  [[nodiscard]] static CommandReply failed(int status, const std::string& problem) {
    return {.status = status, .problem = "tilwin: " + problem + "\n"};
  }
};

}  // namespace tilwin
