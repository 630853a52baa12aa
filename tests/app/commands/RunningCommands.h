#pragma once

#include <string>
#include <vector>

#include "core/commands/CommandReply.h"
#include "tests/app/RunningProgram.h"

namespace tilwin {

/// The program runs, a terminal and an editor are open, and somebody calls `tilwin` with a command.
struct RunningCommands : RunningProgram {
  using RunningProgram::RunningProgram;

  CommandReply call(const std::vector<std::string>& arguments) {
    auto reply = delegate->runCommand(arguments);
    desktop.time.runDue();
    return reply;
  }
  /// What is printed; the command must be carried out.
  std::string outputOf(const std::vector<std::string>& arguments) {
    const auto reply = call(arguments);
    EXPECT_EQ(reply.problem, "");
    EXPECT_EQ(reply.status, exit_status::done);
    return reply.output;
  }
  [[nodiscard]] Rect frameOf(SimulatedWindows::Handle window) { return desktop.windows.find(window)->frame; }

  SimulatedWindows::Handle editor = desktop.windows.open({.title = "Notes", .frame = {720, 0, 720, 900}});
  SimulatedWindows::Handle terminal = desktop.windows.open({.bundleID = "org.example.Terminal",
                                                            .appName = "Terminal",
                                                            .title = "shell",
                                                            .frame = {100, 100, 800, 600}});
};

[[nodiscard]] inline CommandReply couldNot(const std::string& problem) {
  return CommandReply::failed(exit_status::couldNot, problem);
}
[[nodiscard]] inline CommandReply wrongUse(const std::string& problem) {
  return CommandReply::failed(exit_status::wrongUse, problem);
}

}  // namespace tilwin
