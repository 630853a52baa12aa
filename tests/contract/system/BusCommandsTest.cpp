#include "platform/qt/commands/BusCommands.h"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QString>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/qt/system/QtInstance.h"
#include "tests/contract/MainLoop.h"
#include "tests/contract/system/BusGarbage.h"
#include "tests/core/EnvironmentVariable.h"
#include "tests/desktop/harness/ChildProcess.h"
#include "tests/desktop/harness/PrivateHome.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::contract {
namespace {

using desktop::ChildProcess;
using desktop::ExitStatus;
using desktop::startTimeout;
using qt::BusCommands;
using Words = std::vector<std::string>;

constexpr ExitStatus ended{.code = 0, .signal = std::nullopt};

/// An instance on the session bus, and the tool by which people call what they find there.
struct BusCommandsTest : testing::Test {
  void SetUp() override {
    ASSERT_TRUE(instance.claim());
    commands = std::make_unique<BusCommands>(instance.bus(), "1.2.3");
    ASSERT_TRUE(
        commands->serve([this](std::span<const std::string> arguments) { return answer(arguments); }));
    // The name that the bus can start is asked for without waiting.
    ASSERT_TRUE(runMainLoopUntil(
        [this] { return call("org.freedesktop.DBus.Peer.Ping", {}).status == ended; }, startTimeout));
  }

  CommandReply answer(std::span<const std::string> arguments) {
    const Words words(arguments.begin(), arguments.end());
    if (words == Words{"areas", "--json"}) return CommandReply::done(areas);
    if (words.back() == "--json") return CommandReply::done("[]");
    heard.push_back(words);
    return reply;
  }

  struct Ended {
    std::optional<ExitStatus> status;
    std::string output;
    std::string problem;
  };
  Ended gdbus(Words arguments) {
    arguments.insert(arguments.begin(), "gdbus");
    const std::string log = "gdbus" + std::to_string(++calls);
    auto tool = ChildProcess::start({.argv = arguments,
                                     .environment = bus.environment(),
                                     .outputFile = home.log(log),
                                     .errorFile = home.log(log + "-errors")});
    EXPECT_TRUE(runMainLoopUntil([&] { return !tool.running(); }, startTimeout));
    return {tool.status(), tool.output(), tool.errorOutput()};
  }
  Ended call(const std::string& method, const Words& arguments) {
    Words words{"call", "--session", "--dest", name, "--object-path", BusCommands::path, "--method", method};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return gdbus(words);
  }
  Ended command(const std::string& method, const Words& arguments = {}) {
    return call(std::string(BusCommands::interfaceName) + "." + method, arguments);
  }
  Ended property(const std::string& of) {
    return call("org.freedesktop.DBus.Properties.Get", {BusCommands::interfaceName, of});
  }

  desktop::PrivateHome home;
  desktop::SessionBus bus{home, home.environment()};
  std::string address = bus.environment().get("DBUS_SESSION_BUS_ADDRESS");
  EnvironmentVariable busAddress{"DBUS_SESSION_BUS_ADDRESS", address.c_str()};
  qt::QtInstance instance{":0"};
  std::unique_ptr<BusCommands> commands;
  std::string name = BusCommands::service;
  std::string areas = "[]";
  CommandReply reply = CommandReply::done();
  std::vector<Words> heard;
  int calls = 0;
};

TEST_F(BusCommandsTest, AMethodIsACommandWithItsArguments) {
  EXPECT_EQ(command("Snap", {"leftHalf"}).status, ended);
  EXPECT_EQ(command("ApplyLayout", {"Deep work"}).status, ended);
  EXPECT_EQ(command("Set", {"gap", "12"}).status, ended);
  EXPECT_EQ(command("ShowSettings").status, ended);
  EXPECT_EQ(heard,
            (std::vector<Words>{
                {"snap", "leftHalf"}, {"layout", "apply", "Deep work"}, {"set", "gap", "12"}, {"settings"}}));
}

TEST_F(BusCommandsTest, AnInstanceIsFoundByItsDisplayToo) {
  name = qt::QtInstance::serviceName(":0");
  EXPECT_EQ(command("Snap", {"leftHalf"}).status, ended);
}

TEST_F(BusCommandsTest, AnyCommandCanBeRunAsInAShell) {
  reply = {.status = 2, .output = "out\n", .problem = "tilwin: \"lft\" is no action.\n"};
  const auto result = command("Run", {"['snap', 'lft']"});
  EXPECT_EQ(result.output, "(2, 'out\\n', 'tilwin: \"lft\" is no action.\\n')\n");
  EXPECT_EQ(heard, (std::vector<Words>{{"snap", "lft"}}));
}

TEST_F(BusCommandsTest, WhatCouldNotBeDoneIsAnErrorWithTheReason) {
  reply = CommandReply::failed(exit_status::couldNot, "No window has the focus.");
  EXPECT_NE(
      command("Snap", {"leftHalf"}).problem.find("org.tilwin.Commands1.CouldNot: No window has the focus."),
      std::string::npos);
  reply = CommandReply::failed(exit_status::wrongUse, "\"lft\" is no action.");
  EXPECT_NE(command("Snap", {"lft"}).problem.find("org.tilwin.Commands1.WrongUse: \"lft\" is no action."),
            std::string::npos);
}

TEST_F(BusCommandsTest, ACallWithOtherArgumentsIsRefusedUnheard) {
  EXPECT_NE(command("Snap").status, ended);
  EXPECT_NE(command("Run", {"1"}).status, ended);
  EXPECT_NE(command("Erase").status, ended);
  EXPECT_TRUE(heard.empty());
}

TEST_F(BusCommandsTest, ListsAreProperties) {
  areas = R"([{"name":"Reading"},{"name":"Mail"}])";
  EXPECT_EQ(property("Areas").output, "(<['Reading', 'Mail']>,)\n");
  EXPECT_EQ(property("Version").output, "(<'1.2.3'>,)\n");
}

TEST_F(BusCommandsTest, EventsAndWhatTheyChangeAreSignals) {
  auto monitor = ChildProcess::start({.argv = {"gdbus", "monitor", "--session", "--dest", name},
                                      .environment = bus.environment(),
                                      .outputFile = home.log("monitor")});
  const auto sees = [&](const std::string& text) {
    return runMainLoopUntil([&] { return monitor.output().find(text) != std::string::npos; }, startTimeout);
  };
  ASSERT_TRUE(sees("is owned by"));
  areas = R"([{"name":"Reading"}])";
  commands->tell(R"({"event":"setting","key":"customAreas"})");
  EXPECT_TRUE(sees(R"(org.tilwin.Commands1.Happened ('{"event":"setting","key":"customAreas"}',))"));
  EXPECT_TRUE(sees("PropertiesChanged ('org.tilwin.Commands1', {'Areas': <['Reading']>}, "));
  EXPECT_EQ(monitor.output().find("Actions"), std::string::npos) << "only what has changed";
}

TEST_F(BusCommandsTest, WhoAsksIsToldWhatThereIs) {
  const auto text =
      gdbus({"introspect", "--session", "--dest", name, "--object-path", BusCommands::path}).output;
  for (const std::string part :
       {"interface org.tilwin.Commands1", "Run(in  as ", "Snap(in  s ", "Set(in  s ", "Happened(s ",
        "readonly as Areas", "readonly as Layouts", "readonly as Actions", "readonly s Version"}) {
    EXPECT_NE(text.find(part), std::string::npos) << part << " in\n" << text;
  }
}

TEST_F(BusCommandsTest, WatchingIsNoCallButASignal) {
  reply.isWatching = true;
  const auto result = command("Run", {"['watch']"});
  EXPECT_TRUE(result.output.starts_with("(1, '', 'tilwin: On the session bus, the signal Happened"))
      << result.output;
}

TEST_F(BusCommandsTest, GarbageIsAnsweredLikeAnyCall) {
  auto caller = QDBusConnection::connectToBus(QString::fromStdString(address), "caller");
  for (unsigned seed = 0; seed < 500; ++seed) {
    const QDBusMessage garbage = BusGarbage(QString::fromStdString(name), seed).call();
    const QDBusPendingCall answer = caller.asyncCall(garbage);
    EXPECT_TRUE(runMainLoopUntil([&] { return answer.isFinished(); }, startTimeout)) << "seed " << seed;
    EXPECT_TRUE(caller.isConnected()) << "seed " << seed;
  }
  QDBusConnection::disconnectFromBus("caller");
  heard.clear();
  EXPECT_EQ(command("Snap", {"leftHalf"}).status, ended);
  EXPECT_EQ(heard, (std::vector<Words>{{"snap", "leftHalf"}}));
}

}  // namespace
}  // namespace tilwin::contract
