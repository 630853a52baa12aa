#include <gtest/gtest.h>

#include <QLocalSocket>
#include <QString>
#include <chrono>
#include <csignal>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/commands/CommandWire.h"
#include "platform/qt/commands/SocketCommands.h"
#include "tests/contract/MainLoop.h"
#include "tests/desktop/harness/ChildProcess.h"
#include "tests/desktop/harness/PrivateHome.h"

namespace tilwin::contract {
namespace {

using desktop::ChildProcess;
using desktop::ExitStatus;
using desktop::startTimeout;
using qt::SocketCommands;
using Words = std::vector<std::string>;

/// An instance that everybody may watch.
struct SocketWatchTest : testing::Test {
  void SetUp() override {
    instance = std::make_unique<SocketCommands>(path);
    ASSERT_TRUE(instance->serve([this](std::span<const std::string> arguments) {
      ++calls;
      CommandReply reply;
      reply.isWatching = arguments.front() == "watch";
      return reply;
    }));
  }

  ChildProcess call(const std::string& command) {
    auto environment = home.environment();
    environment.set("DISPLAY", ":77");
    return ChildProcess::start({.argv = {TILWIN_CLIENT, command},
                                .environment = environment,
                                .outputFile = home.log(command + std::to_string(calls)),
                                .errorFile = home.log("errors")});
  }
  ChildProcess watch() {
    const int before = calls;
    auto watcher = call("watch");
    EXPECT_TRUE(runMainLoopUntil([&] { return calls > before; }, startTimeout));
    return watcher;
  }
  static bool reads(const ChildProcess& watcher, const std::string& text) {
    return runMainLoopUntil([&] { return watcher.output() == text; }, startTimeout);
  }
  static std::optional<ExitStatus> endOf(ChildProcess& process) {
    EXPECT_TRUE(runMainLoopUntil([&] { return !process.running(); }, startTimeout));
    return process.status();
  }

  desktop::PrivateHome home;
  std::string path = *CommandWire::socketPath(home.runtime().string(), ":77");
  int calls = 0;
  std::unique_ptr<SocketCommands> instance;
};

TEST_F(SocketWatchTest, EachLineIsPrintedAsItComesToAllWhoWatch) {
  auto one = watch();
  auto other = watch();
  instance->tell("first");
  EXPECT_TRUE(reads(one, "first\n"));
  instance->tell("second");
  EXPECT_TRUE(reads(one, "first\nsecond\n"));
  EXPECT_TRUE(reads(other, "first\nsecond\n"));
}

TEST_F(SocketWatchTest, WatchingEndsInPeaceWithTheInstance) {
  auto watcher = watch();
  instance.reset();
  EXPECT_EQ(endOf(watcher), (ExitStatus{0, std::nullopt}));
  EXPECT_EQ(watcher.errorOutput(), "");
}

TEST_F(SocketWatchTest, OthersGetNoLines) {
  auto watcher = watch();
  auto other = call("windows");
  EXPECT_EQ(endOf(other), (ExitStatus{0, std::nullopt}));
  instance->tell("line");
  EXPECT_TRUE(reads(watcher, "line\n"));
  EXPECT_EQ(other.output(), "");
}

TEST_F(SocketWatchTest, AWatcherThatHasGoneIsForgotten) {
  auto gone = watch();
  gone.signal(SIGKILL);
  auto watcher = watch();
  instance->tell("line");
  EXPECT_TRUE(reads(watcher, "line\n"));
}

TEST_F(SocketWatchTest, AWatcherThatDoesNotReadIsHungUpOn) {
  auto lazy = watch();
  auto watcher = watch();
  lazy.signal(SIGSTOP);
  const std::string line(SocketCommands::mostUnread / 4, 'x');
  for (int count = 0; count < 20; ++count) {
    instance->tell(line);
    runMainLoop(std::chrono::milliseconds(5));
  }
  lazy.signal(SIGCONT);
  EXPECT_EQ(endOf(lazy), (ExitStatus{1, std::nullopt}));
  EXPECT_LT(lazy.output().size(), 15 * line.size());
  EXPECT_TRUE(
      runMainLoopUntil([&] { return watcher.output().size() == 20 * (line.size() + 1); }, startTimeout));
}

TEST_F(SocketWatchTest, OneTooManyIsRefusedAndTheOthersGoOn) {
  std::vector<std::unique_ptr<QLocalSocket>> watchers;
  for (int count = 0; count < SocketCommands::mostWatching; ++count) {
    watchers.push_back(std::make_unique<QLocalSocket>());
    watchers.back()->connectToServer(QString::fromStdString(path));
    watchers.back()->write(QByteArray::fromStdString(*CommandWire::request(Words{"watch"})));
    ASSERT_TRUE(runMainLoopUntil([&] { return calls == count + 1; }, startTimeout));
  }
  auto oneMore = call("watch");
  EXPECT_EQ(endOf(oneMore), (ExitStatus{1, std::nullopt}));
  EXPECT_EQ(oneMore.errorOutput(), "tilwin: Too many programs watch already.\n");
  EXPECT_EQ(watchers.front()->state(), QLocalSocket::ConnectedState);
}

}  // namespace
}  // namespace tilwin::contract
