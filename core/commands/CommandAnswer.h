#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/commands/CommandReply.h"

namespace tilwin {

/// What became of a command, as the frames of `CommandWire`.
struct CommandAnswer {
  /// Of one that watches, only an empty frame: it tells the caller that it was heard, and can wait without a
  /// limit.
  [[nodiscard]] static std::string bytes(const CommandReply& reply);
  /// Nothing if the bytes are no whole answer.
  [[nodiscard]] static std::optional<CommandReply> reply(std::string_view bytes);
};

}  // namespace tilwin
