#pragma once

namespace tilwin {

/// Standard input, output and error of this process, whoever started it.
struct StandardStreams {
  /// Opens /dev/null in the place of those that are closed: otherwise the next file or connection of the
  /// program gets the number, and what is printed goes into it. From then on nobody reading what is printed
  /// is no reason to die of SIGPIPE, as no line is worth what has not been saved yet. To be called first in
  /// the program; a program it starts should have SIGPIPE's default back. Source: POSIX, open and sigaction.
  static void secure();
};

}  // namespace tilwin
