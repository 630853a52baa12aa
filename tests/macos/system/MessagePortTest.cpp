#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/macos/support/CFText.h"
#include "platform/macos/system/MessagePortCaller.h"
#include "platform/macos/system/MessagePortCommands.h"
#include "platform/macos/system/PortMessage.h"
#include "tests/macos/c/messages/MessagePorts.h"
#include "tests/macos/c/messages/RunLoop.h"

namespace tilwin::macos {
namespace {

using Words = std::vector<std::string>;

/// An instance that takes commands, and others in the user's session who call it.
struct MessagePortTest : testing::Test {
  void serve() {
    instance = std::make_unique<MessagePortCommands>();
    ASSERT_TRUE(instance->serve([this](std::span<const std::string> arguments) {
      heard.emplace_back(arguments.begin(), arguments.end());
      CommandReply answer = reply;
      answer.isWatching = arguments.front() == "watch";
      return answer;
    }));
  }
  std::optional<CommandReply> call(const Words& words) {
    return MessagePortCaller::ask(words, [this](std::string_view line) { lines.emplace_back(line); });
  }
  static c::RunLoop& others() { return c::RunLoop::shared(); }

  CommandReply reply = CommandReply::done("out\n");
  std::vector<Words> heard;
  Words lines;
  std::unique_ptr<MessagePortCommands> instance;
};

TEST_F(MessagePortTest, ACommandIsHeardAsItWasCalledAndItsAnswerComesBack) {
  serve();
  EXPECT_EQ(call({"place", "xterm left", ""}), reply);
  EXPECT_EQ(heard, (std::vector<Words>{{"place", "xterm left", ""}}));
  reply = CommandReply::failed(exit_status::couldNot, "No.");
  EXPECT_EQ(call({"quit"}), reply);
}

TEST_F(MessagePortTest, WithoutAnInstanceNothingIsDone) {
  EXPECT_EQ(call({"quit"}), std::nullopt);
  serve();
  instance.reset();
  EXPECT_EQ(call({"quit"}), std::nullopt);
  EXPECT_TRUE(heard.empty());
}

TEST_F(MessagePortTest, TheSecondInstanceTakesNoCommands) {
  serve();
  MessagePortCommands second;
  EXPECT_FALSE(second.serve([](auto) { return CommandReply::done("second"); }));
  EXPECT_EQ(call({"get"}), reply);
}

TEST_F(MessagePortTest, APortOfAnotherProgramIsNotTakenFromIt) {
  c::MessagePorts::shared().holdElsewhere(std::string(commandPort));
  MessagePortCommands late;
  EXPECT_FALSE(late.serve([](auto) { return CommandReply::done(); }));
  EXPECT_EQ(call({"get"}), CommandReply::failed(exit_status::couldNot, "Tilwin did not answer."));
  c::MessagePorts::shared().letGoElsewhere(std::string(commandPort));
}

TEST_F(MessagePortTest, GarbageIsNotHeard) {
  serve();
  const auto port = created(CFMessagePortCreateRemote(kCFAllocatorDefault, cfText(commandPort).get()));
  for (const SInt32 message : {port_message::command, port_message::watch, SInt32{77}}) {
    CFDataRef answer = nullptr;
    EXPECT_EQ(CFMessagePortSendRequest(port.get(), message, dataOf("\xff garbage").get(), 1, 1,
                                       kCFRunLoopDefaultMode, &answer),
              kCFMessagePortSuccess);
    EXPECT_EQ(answer, nullptr) << message;
  }
  EXPECT_TRUE(heard.empty());
}

TEST_F(MessagePortTest, WatchingPrintsEachLineUntilTheInstanceEnds) {
  serve();
  others().meanwhile([this] { instance->tell("one"); });
  others().meanwhile([this] { instance->tell("two"); });
  others().meanwhile([this] { instance.reset(); });
  EXPECT_EQ(call({"watch"}), CommandReply::done());
  EXPECT_EQ(lines, (Words{"one", "two"}));
}

TEST_F(MessagePortTest, WhoWatchesIsToldOfAnInstanceThatIsGoneWithoutAWord) {
  serve();
  others().meanwhile([] { c::MessagePorts::shared().invalidateRemotes(std::string(commandPort)); });
  EXPECT_EQ(call({"watch"}), CommandReply::failed(exit_status::couldNot, "Tilwin did not answer."));
}

TEST_F(MessagePortTest, AWatcherThatHasGoneIsForgotten) {
  serve();
  others().meanwhile([] { CFRunLoopStop(CFRunLoopGetCurrent()); });
  call({"watch"});
  instance->tell("nobody reads it");
  EXPECT_TRUE(lines.empty());
}

TEST_F(MessagePortTest, OneWatcherTooManyIsRefused) {
  serve();
  const auto port = created(CFMessagePortCreateRemote(kCFAllocatorDefault, cfText(commandPort).get()));
  for (std::size_t count = 0; count < MessagePortCommands::mostWatching; ++count) {
    CFDataRef answer = nullptr;
    CFMessagePortSendRequest(port.get(), port_message::watch, dataOf(commandPort).get(), 1, 1,
                             kCFRunLoopDefaultMode, &answer);
    EXPECT_TRUE(created(answer));
  }
  EXPECT_EQ(call({"watch"}), CommandReply::failed(exit_status::couldNot, "Too many programs watch already."));
}

}  // namespace
}  // namespace tilwin::macos
