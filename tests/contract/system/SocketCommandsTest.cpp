#include "platform/qt/commands/SocketCommands.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QLocalSocket>
#include <QString>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "core/commands/CommandWire.h"
#include "tests/TemporaryFolder.h"
#include "tests/contract/MainLoop.h"
#include "tests/contract/UnknownUser.h"
#include "tests/desktop/harness/ChildProcess.h"
#include "tests/desktop/harness/PrivateHome.h"

namespace tilwin::contract {
namespace {

using namespace std::chrono_literals;
using desktop::ChildProcess;
using desktop::ExitStatus;
using desktop::startTimeout;
using qt::SocketCommands;
using Words = std::vector<std::string>;

/// A connection that says what the program `tilwin` never would.
class RawCaller {
public:
  explicit RawCaller(const std::string& path) { socket_.connectToServer(QString::fromStdString(path)); }

  void say(const std::string& bytes) {
    socket_.write(QByteArray::fromStdString(bytes));
    socket_.flush();
  }
  [[nodiscard]] bool isConnected() const { return socket_.state() == QLocalSocket::ConnectedState; }
  [[nodiscard]] bool isHungUpOn() {
    return runMainLoopUntil([this] { return !isConnected(); }, startTimeout) && socket_.readAll().isEmpty();
  }

private:
  QLocalSocket socket_;
};

/// An instance that takes commands, and processes that give them.
struct SocketCommandsTest : testing::Test {
  bool serve(SocketCommands& instance) {
    return instance.serve([this](std::span<const std::string> arguments) {
      heard.emplace_back(arguments.begin(), arguments.end());
      return reply;
    });
  }

  struct Ended {
    std::string output;
    std::string problem;
    std::optional<ExitStatus> status;
  };
  /// The program `tilwin`, called with these arguments.
  Ended call(const Words& arguments) {
    auto environment = home.environment();
    environment.set("DISPLAY", ":77");
    Words argv{TILWIN_CLIENT};
    argv.insert(argv.end(), arguments.begin(), arguments.end());
    auto tilwin = ChildProcess::start({.argv = argv,
                                       .environment = environment,
                                       .outputFile = home.log("output"),
                                       .errorFile = home.log("errors")});
    EXPECT_TRUE(runMainLoopUntil([&] { return !tilwin.running(); }, startTimeout));
    return {tilwin.output(), tilwin.errorOutput(), tilwin.status()};
  }

  desktop::PrivateHome home;
  std::string path = *CommandWire::socketPath(home.runtime().string(), ":77");
  CommandReply reply = CommandReply::done();
  std::vector<Words> heard;
  SocketCommands commands{path};
};

TEST_F(SocketCommandsTest, ACommandIsHeardAsItWasCalled) {
  ASSERT_TRUE(serve(commands));
  const Words words{"place", "xterm left,\nmpv \"right\"", ""};
  EXPECT_EQ(call(words).status, (ExitStatus{0, std::nullopt}));
  EXPECT_EQ(heard, (std::vector<Words>{words}));
}

TEST_F(SocketCommandsTest, TheCallerPrintsTheAnswerAndEndsWithItsStatus) {
  reply = {.status = 3, .output = "out\n" + std::string(300000, 'x') + "\n", .problem = "tilwin: no\n"};
  ASSERT_TRUE(serve(commands));
  const auto ended = call({"windows"});
  EXPECT_EQ(ended.output, reply.output);
  EXPECT_EQ(ended.problem, reply.problem);
  EXPECT_EQ(ended.status, (ExitStatus{3, std::nullopt}));
}

TEST_F(SocketCommandsTest, OnlyItsUserCanOpenTheSocket) {
  ASSERT_TRUE(serve(commands));
  struct stat file {};
  ASSERT_EQ(lstat(path.c_str(), &file), 0);
  EXPECT_TRUE(S_ISSOCK(file.st_mode));
  EXPECT_EQ(file.st_mode & 0777U, 0600U);
}

TEST_F(SocketCommandsTest, AnotherUserIsNotHeardEvenIfTheSocketIsOpenToAll) {
  const TemporaryFolder folder;
  std::filesystem::permissions(folder.path(), std::filesystem::perms{0755});
  SocketCommands open((folder.path() / "socket").string());
  ASSERT_TRUE(serve(open));
  std::filesystem::permissions(folder.path() / "socket", std::filesystem::perms{0666});
  std::unique_ptr<RawCaller> stranger;
  bool isStranger = false;
  {
    const UnknownUser user;
    isStranger = user.isOne();
    stranger = std::make_unique<RawCaller>((folder.path() / "socket").string());
    stranger->say(*CommandWire::request(Words{"quit"}));
  }
  if (isStranger) {
    EXPECT_TRUE(stranger->isHungUpOn());
    EXPECT_TRUE(heard.empty());
  } else {
    std::puts("not run by root, so that there is no other user: the own one is heard");
    EXPECT_TRUE(runMainLoopUntil([&] { return heard.size() == 1; }, startTimeout));
  }
}

TEST_F(SocketCommandsTest, TheSocketGoesWithTheInstance) {
  {
    SocketCommands brief(path);
    ASSERT_TRUE(serve(brief));
    EXPECT_TRUE(std::filesystem::exists(path));
  }
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(SocketCommandsTest, ASocketThatAKilledInstanceLeftIsReplaced) {
  auto killed = ChildProcess::start(
      {.argv = {"python3", "-c", "import socket, sys; socket.socket(socket.AF_UNIX).bind(sys.argv[1])", path},
       .environment = home.environment()});
  killed.waitFor(startTimeout);
  ASSERT_TRUE(std::filesystem::exists(path));
  ASSERT_TRUE(serve(commands));
  EXPECT_EQ(call({"quit"}).status, (ExitStatus{0, std::nullopt}));
}

TEST_F(SocketCommandsTest, ASecondInstanceDoesNotTakeTheFirstOnesPlace) {
  ASSERT_TRUE(serve(commands));
  {
    SocketCommands second(path);
    EXPECT_FALSE(serve(second));
  }
  EXPECT_EQ(call({"quit"}).status, (ExitStatus{0, std::nullopt}));
}

TEST_F(SocketCommandsTest, AFileInItsPlaceIsLeftAlone) {
  std::ofstream(path) << "precious";
  EXPECT_FALSE(serve(commands));
  std::ifstream file(path);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "precious");
}

TEST_F(SocketCommandsTest, WithoutARuntimeFolderNothingIsTaken) {
  SocketCommands nowhere("");
  EXPECT_FALSE(serve(nowhere));
  SocketCommands missing((home.path() / "missing" / "socket").string());
  EXPECT_FALSE(serve(missing));
}

TEST_F(SocketCommandsTest, GarbageIsHungUpOnUnheard) {
  ASSERT_TRUE(serve(commands));
  for (const std::string& bytes : {std::string("GET / HTTP/1.1\r\n\r\n"), std::string("\0\0\0\4quit", 8),
                                   *CommandWire::request(Words{"quit"}) + "more"}) {
    RawCaller caller(path);
    caller.say(bytes);
    EXPECT_TRUE(caller.isHungUpOn());
  }
  EXPECT_TRUE(heard.empty());
}

TEST_F(SocketCommandsTest, ARequestMayComeInPieces) {
  ASSERT_TRUE(serve(commands));
  RawCaller caller(path);
  const std::string request = *CommandWire::request(Words{"snap", "leftHalf"});
  for (const char byte : request) {
    caller.say({byte});
    runMainLoop(1ms);
  }
  EXPECT_TRUE(runMainLoopUntil([&] { return heard.size() == 1; }, startTimeout));
}

TEST_F(SocketCommandsTest, CallersWhoSayNothingKeepNobodyOut) {
  ASSERT_TRUE(serve(commands));
  std::vector<std::unique_ptr<RawCaller>> silent;
  for (int count = 0; count < 3 * SocketCommands::mostWaiting; ++count) {
    silent.push_back(std::make_unique<RawCaller>(path));
    runMainLoop(0ms);
  }
  EXPECT_EQ(call({"quit"}).status, (ExitStatus{0, std::nullopt}));
  EXPECT_TRUE(runMainLoopUntil(
      [&] {
        return std::ranges::count_if(silent, [](const auto& each) { return each->isConnected(); }) <=
               SocketCommands::mostWaiting;
      },
      startTimeout));
}

TEST_F(SocketCommandsTest, AnInstanceThatEndsWhileItCarriesOutACommandHasAnswered) {
  auto brief = std::make_unique<SocketCommands>(path);
  bool isOver = false;
  ASSERT_TRUE(brief->serve([&](std::span<const std::string>) {
    isOver = true;
    return CommandReply::done("bye\n");
  }));
  auto environment = home.environment();
  environment.set("DISPLAY", ":77");
  auto tilwin = ChildProcess::start(
      {.argv = {TILWIN_CLIENT, "quit"}, .environment = environment, .outputFile = home.log("output")});
  EXPECT_TRUE(runMainLoopUntil([&] { return isOver; }, startTimeout));
  brief.reset();
  EXPECT_EQ(tilwin.waitFor(startTimeout), (ExitStatus{0, std::nullopt}));
  EXPECT_EQ(tilwin.output(), "bye\n");
}

}  // namespace
}  // namespace tilwin::contract
