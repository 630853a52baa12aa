#pragma once

#include <iostream>

#include "core/commands/CommandReply.h"

namespace tilwin {

/// Prints what a command has to say; returns its exit status.
inline int print(const CommandReply& reply) {
  std::cout << reply.output << std::flush;
  std::cerr << reply.problem << std::flush;
  return reply.status;
}

}  // namespace tilwin
