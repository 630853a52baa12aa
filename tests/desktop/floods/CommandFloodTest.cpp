#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <iostream>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "core/commands/CommandWire.h"
#include "tests/desktop/floods/Callers.h"
#include "tests/desktop/floods/FloodedDesktop.h"

namespace tilwin::desktop {

namespace {

struct CommandFlood {
  std::string_view name;
  std::function<std::string(unsigned call)> say;  ///< to the socket; without it, questions come over the bus
  std::chrono::seconds time{3};
  bool isPatient = true;
  bool isAnswered = true;
};

std::string garbage(unsigned call) {
  std::string bytes(64, '\0');
  for (char& byte : bytes) byte = static_cast<char>(call = call * 1103515245U + 12345U);
  return bytes;
}

std::vector<CommandFlood> commandFloods() {
  const auto command = [](const std::vector<std::string>& words) {
    return [bytes = CommandWire::request(words).value_or("")](unsigned) { return bytes; };
  };
  return {
      {.name = "OfQuestions", .say = command({"get", "gap"}), .time = std::chrono::seconds{10}},
      {.name = "OfQuestionsOverTheBus", .say = {}, .time = std::chrono::seconds{10}},
      {.name = "OfLists", .say = command({"windows", "--json"})},
      {.name = "OfMisuse", .say = command({"snap", "leftHlaf"})},
      {.name = "OfGarbage", .say = garbage, .isAnswered = false},
      {.name = "OfSilence",
       .say = [](unsigned) { return std::string(); },
       .isPatient = false,
       .isAnswered = false},
  };
}

/// Programs command Tilwin without pause.
class CommandFloods : public FloodedDesktop, public testing::WithParamInterface<CommandFlood> {
protected:
  static CallMaker callsOf(const CommandFlood& flood) {
    const auto environment = session().environment();
    const auto& display = session().server().display();
    if (!flood.say) return busCalls(environment.get("DBUS_SESSION_BUS_ADDRESS"), display);
    const auto socket = CommandWire::socketPath(environment.get("XDG_RUNTIME_DIR"), display);
    return socketCalls(socket.value_or(""), flood.say, flood.isPatient);
  }
};

}  // namespace

TEST_P(CommandFloods, KeepNoPressWaitingAndTakeNoMemory) {
  const auto begin = Clock::now();
  Milliseconds longest{0};
  unsigned calls = 0;
  {
    const Callers callers(callsOf(GetParam()));
    while (Clock::now() < begin + GetParam().time) longest = std::max(longest, longestAnswer());
    calls = callers.calls();
    EXPECT_EQ(callers.answered() > 0, GetParam().isAnswered);
  }
  const auto grown = growth();
  EXPECT_LE(longest, FloodLimits::answer);
  EXPECT_LE(grown, FloodLimits::memory);
  EXPECT_LE(longestAnswer(), FloodLimits::answer) << "after it";
  std::cout << GetParam().name << ": " << calls / GetParam().time.count() << " a second; answers within "
            << longest.count() << " ms; memory +" << grown << " KiB\n";
}

INSTANTIATE_TEST_SUITE_P(Here, CommandFloods, testing::ValuesIn(commandFloods()),
                         [](const auto& flood) { return std::string(flood.param.name); });

}  // namespace tilwin::desktop
