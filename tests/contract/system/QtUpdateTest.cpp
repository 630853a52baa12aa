#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "platform/qt/system/QtUpdateFramework.h"
#include "platform/simulated/SimulatedInterface.h"
#include "platform/simulated/SimulatedSystem.h"
#include "tests/contract/MainLoop.h"
#include "tests/contract/SystemContract.h"
#include "tests/contract/system/Feeds.h"
#include "tests/contract/system/WebServer.h"
#include "tests/core/EnvironmentVariable.h"
#include "tests/desktop/harness/Waiting.h"

namespace tilwin::contract {
namespace {

using namespace std::chrono_literals;

constexpr const char* failed = "The check for updates failed";

/// Version 1.2 of the program with a feed on the loopback, and a user who reads its dialogs.
struct QtUpdateTest : testing::Test {
  QtUpdateTest() {
    controller->onCanCheckForUpdates([this](bool can) { told.push_back(can); });
    dialogs.whileOpen = [this] { couldCheckMeanwhile = told.back(); };
  }

  void checkNow() {
    controller->checkForUpdates();
    ASSERT_TRUE(runMainLoopUntil([&] { return told.back(); }, desktop::startTimeout));
  }

  /// The titles of all dialogs so far.
  [[nodiscard]] std::vector<std::string> titles() const {
    std::vector<std::string> all;
    for (const auto& each : dialogs.alerts()) all.push_back(each.title);
    for (const auto& each : dialogs.confirmations()) all.push_back(each.title);
    return all;
  }

  EnvironmentVariable noProxy{"http_proxy", nullptr};
  WebAnswer answer{};
  WebServer server{[this](const WebRequest&) { return answer; }};
  SimulatedDialogs dialogs;
  SimulatedFileViewer files;
  SimulatedLog log;
  qt::QtUpdateFramework framework{"1.2", {dialogs, files, log}, {.time = 5s, .bytes = 100'000}};
  std::unique_ptr<UpdateController> controller = framework.createController(server.address("/appcast.xml"));
  std::vector<bool> told;
  bool couldCheckMeanwhile = false;
};

TEST_F(QtUpdateTest, TellsThatTheProgramIsUpToDate) {
  EXPECT_EQ(controller->start(), std::nullopt);
  for (const char* const newest : {"1.2", "1.2.0", "1.1", "1.2-beta"}) {
    answer.body = feedOf({release(newest, "https://example.org/new")});
    checkNow();
    EXPECT_EQ(dialogs.alerts().back(), (DialogText{"Tilwin is up to date", "Version 1.2 is the newest."}));
  }
  EXPECT_EQ(titles().size(), 4);
  EXPECT_EQ(dialogs.activations(), 4) << "each comes to the front";
  EXPECT_EQ(log.lines(), std::vector<std::string>());
}

TEST_F(QtUpdateTest, OffersToOpenThePageOfANewerRelease) {
  EXPECT_EQ(controller->start(), std::nullopt);
  answer.body =
      feedOf({release("1.1", "https://example.org/old"), release("1.3", "https://example.org/new")});
  checkNow();
  EXPECT_EQ(dialogs.confirmations(),
            (std::vector<DialogText>{{"Tilwin 1.3 is available", "You have version 1.2."}}));
  EXPECT_EQ(files.opened(), std::vector<std::string>()) << "the user cancelled";
  dialogs.setAccepting(true);
  checkNow();
  EXPECT_EQ(files.opened(), std::vector<std::string>{"https://example.org/new"});
  EXPECT_EQ(server.requests().size(), 2) << "nothing else is fetched";
}

TEST_F(QtUpdateTest, OnlyTellsOfANewerReleaseWithoutAWebPage) {
  EXPECT_EQ(controller->start(), std::nullopt);
  dialogs.setAccepting(true);
  answer.body = feedOf({release("1.3", "file:///tmp/install.sh")}, "");
  checkNow();
  EXPECT_EQ(dialogs.alerts(),
            (std::vector<DialogText>{{"Tilwin 1.3 is available", "You have version 1.2."}}));
  EXPECT_EQ(files.opened(), std::vector<std::string>());
}

TEST_F(QtUpdateTest, TellsAndLogsOnceThatACheckFailed) {
  EXPECT_EQ(controller->start(), std::nullopt);
  const std::vector<WebAnswer> answers{
      {.status = 500, .body = "oops"},
      {.status = 404, .body = feedOf({release("1.3", "")})},
      {.body = ""},
      {.body = "<html>Welcome to the hotel</html>"},
      {.body = feedOf({})},
      {.body = "<!DOCTYPE rss [<!ENTITY a \"1.3\">]>" + feedOf({release("&a;", "")})},
      {.body = "xxxxxxxx", .endlessly = qint64{1} << 30},
      {.status = 302, .headers = {"Location: /appcast.xml"}},
  };
  std::vector<std::string> expected;
  for (const auto& each : answers) {
    answer = each;
    checkNow();
    expected.emplace_back(failed);
    EXPECT_EQ(titles(), expected) << each.body.substr(0, 100);
    ASSERT_EQ(log.lines().size(), expected.size());
    EXPECT_TRUE(log.lines().back().starts_with("Tilwin: cannot check for updates: ")) << log.lines().back();
    EXPECT_EQ(log.lines().back().find('\n'), std::string::npos);
  }
}

TEST_F(QtUpdateTest, SendsTheHeadersWithEveryCheck) {
  controller->setHTTPHeaders({{"X-Tilwin-Channel", "beta"}});
  EXPECT_EQ(controller->start(), std::nullopt);
  answer.body = feedOf({release("1.2", "")});
  for (std::size_t checked = 0; checked < 2; ++checked) {
    checkNow();
    EXPECT_EQ(server.requests().at(checked).headers.at("x-tilwin-channel"), "beta");
  }
}

TEST_F(QtUpdateTest, SendsNoTokenThatItWasNotGiven) {
  EXPECT_EQ(controller->start(), std::nullopt);
  answer.body = feedOf({release("1.2", "")});
  checkNow();
  EXPECT_FALSE(server.requests().at(0).headers.contains("x-tilwin-channel"));
}

TEST_F(QtUpdateTest, ChecksOneAtATime) {
  EXPECT_EQ(controller->start(), std::nullopt);
  answer.body = feedOf({release("1.2", "")});
  controller->checkForUpdates();
  EXPECT_FALSE(told.back());
  controller->checkForUpdates();
  dialogs.whileOpen = [&] {
    EXPECT_FALSE(told.back()) << "not before the user has read the result";
    controller->checkForUpdates();
  };
  ASSERT_TRUE(runMainLoopUntil([&] { return told.back(); }, desktop::startTimeout));
  runMainLoop(50ms);
  EXPECT_EQ(server.requests().size(), 1);
  EXPECT_EQ(titles().size(), 1);
  EXPECT_EQ(told, (std::vector<bool>{false, true, false, true}));
}

TEST_F(QtUpdateTest, DoesNotStartForAFeedThatIsNotOnTheWeb) {
  for (const char* const feed :
       {"not an address", "file:///etc/passwd", "ftp://example.org/", "https://", ""}) {
    const auto other = framework.createController(feed);
    EXPECT_NE(other->start(), std::nullopt) << feed;
    other->onCanCheckForUpdates([](bool can) { EXPECT_FALSE(can); });
    other->checkForUpdates();
  }
  runMainLoop(20ms);
  EXPECT_EQ(titles(), std::vector<std::string>());
}

TEST_F(QtUpdateTest, SaysNothingMoreOnceItIsDestroyed) {
  EXPECT_EQ(controller->start(), std::nullopt);
  answer.never = true;
  controller->checkForUpdates();
  ASSERT_TRUE(runMainLoopUntil([&] { return !server.requests().empty(); }, desktop::startTimeout));
  controller.reset();
  runMainLoop(50ms);
  EXPECT_EQ(titles(), std::vector<std::string>());
}

TEST_F(QtUpdateTest, MayBeDestroyedWhileItsDialogIsOpen) {
  EXPECT_EQ(controller->start(), std::nullopt);
  dialogs.setAccepting(true);
  dialogs.whileOpen = [&] { controller.reset(); };
  answer.body = feedOf({release("1.3", "https://example.org/new")});
  controller->checkForUpdates();
  ASSERT_TRUE(runMainLoopUntil([&] { return !files.opened().empty(); }, desktop::startTimeout));
  EXPECT_EQ(controller, nullptr);
}

/// The threads of this process.
std::ptrdiff_t threads() {
  using Folder = std::filesystem::directory_iterator;
  return std::distance(Folder("/proc/self/task"), Folder());
}

TEST_F(QtUpdateTest, NothingOfTheNetworkIsThereBeforeAndAfterACheck) {
  const auto before = threads();
  EXPECT_EQ(controller->start(), std::nullopt);
  runMainLoop(20ms);
  EXPECT_EQ(threads(), before);
  EXPECT_EQ(server.requests().size(), 0);
  answer.body = feedOf({release("1.2", "")});
  checkNow();
  EXPECT_TRUE(runMainLoopUntil([&] { return threads() <= before; }, desktop::startTimeout));
}

class QtUpdateWorld : public UpdateWorld {
public:
  UpdateFramework& framework() override { return framework_; }
  [[nodiscard]] std::string feed() const override { return server_.address(); }
  bool waitUntilReady() override { return true; }
  int checks() override {
    runMainLoopUntil([this] { return !server_.requests().empty(); }, 200ms);
    return static_cast<int>(server_.requests().size());
  }

private:
  EnvironmentVariable noProxy_{"http_proxy", nullptr};
  WebServer server_{[](const WebRequest&) { return WebAnswer{.body = feedOf({release("1.0", "")})}; }};
  SimulatedDialogs dialogs_;
  SimulatedFileViewer files_;
  SimulatedLog log_;
  qt::QtUpdateFramework framework_{"1.2", {dialogs_, files_, log_}};
};

std::unique_ptr<UpdateWorld> makeQtUpdateWorld() { return std::make_unique<QtUpdateWorld>(); }

}  // namespace

INSTANTIATE_TEST_SUITE_P(Qt, UpdateContract, testing::Values(&makeQtUpdateWorld));

}  // namespace tilwin::contract
