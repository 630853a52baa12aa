#include "platform/qt/system/QtFileViewer.h"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "platform/qt/StopSignals.h"
#include "platform/simulated/SimulatedSystem.h"
#include "tests/contract/MainLoop.h"
#include "tests/core/EnvironmentVariable.h"
#include "tests/core/support/FileText.h"
#include "tests/desktop/harness/PrivateHome.h"
#include "tests/desktop/harness/Session.h"
#include "tests/desktop/harness/Waiting.h"

namespace tilwin::contract {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

/// A file manager on the bus, which selects what it is asked to or answers with an error.
class FileManager : public QDBusVirtualObject {
public:
  FileManager(const QString& address, bool works)
      : bus_(QDBusConnection::connectToBus(address, QStringLiteral("file-manager"))), works_(works) {
    bus_.registerVirtualObject(QStringLiteral("/org/freedesktop/FileManager1"), this);
    bus_.registerService(QStringLiteral("org.freedesktop.FileManager1"));
  }
  FileManager(const FileManager&) = delete;
  FileManager& operator=(const FileManager&) = delete;
  ~FileManager() override { QDBusConnection::disconnectFromBus(QStringLiteral("file-manager")); }

  Lines calls;

private:
  [[nodiscard]] QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    calls.push_back(message.member().toStdString() + " " +
                    message.arguments().value(0).toStringList().join(' ').toStdString());
    connection.send(works_ ? message.createReply()
                           : message.createErrorReply(QDBusError::Failed, "no window"));
    return true;
  }

  QDBusConnection bus_;
  bool works_;
};

/// A desktop whose programs for opening things only note what they were asked to open.
struct QtFileViewerTest : testing::Test {
  QtFileViewerTest() { install("xdg-open", "xdg"); }

  void install(const char* program, const std::string& name) {
    home.write(fs::path("bin") / program,
               "#!/bin/sh\nprintf '%s\\n' \"" + name + " $*\" >> " + opened.string() + "\n");
    fs::permissions(home.path() / "bin" / program, fs::perms::owner_all);
  }

  /// Waits until that is what was opened.
  testing::AssertionResult opens(const std::string& line) {
    if (runMainLoopUntil([&] { return textOf(opened) == line + "\n"; }, 5s))
      return testing::AssertionSuccess();
    return testing::AssertionFailure() << "wanted " << line << ", opened " << textOf(opened);
  }

  desktop::PrivateHome home;
  fs::path opened = home.path() / "opened";
  EnvironmentVariable path{"PATH", (home.path() / "bin").c_str()};
  EnvironmentVariable noBus{"DBUS_SESSION_BUS_ADDRESS", nullptr};
  EnvironmentVariable noRuntime{"XDG_RUNTIME_DIR", nullptr};
  SimulatedLog log;
  qt::QtFileViewer viewer{log};
};

TEST_F(QtFileViewerTest, OpensAnAddressInTheProgramForIt) {
  viewer.openURL("https://example.org/new?a=b&c=$HOME");
  EXPECT_TRUE(opens("xdg https://example.org/new?a=b&c=$HOME"));
  EXPECT_EQ(log.lines(), Lines());
}

TEST_F(QtFileViewerTest, OpensThroughAnotherProgramWhereOneIsMissing) {
  fs::remove(home.path() / "bin" / "xdg-open");
  install("gio", "gio");
  viewer.openURL("https://example.org/");
  EXPECT_TRUE(opens("gio open https://example.org/"));
  EXPECT_EQ(log.lines(), Lines());
}

TEST_F(QtFileViewerTest, WhatItOpensCanBeStoppedThoughThisProgramBlocksItsSignals) {
  home.write("bin/xdg-open",
             "#!/bin/sh\n/bin/sed -n 's/^SigBlk:.//p' /proc/self/status > " + opened.string());
  sigset_t before;
  pthread_sigmask(SIG_SETMASK, nullptr, &before);
  qt::StopSignals::block();
  viewer.openURL("https://example.org/");
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  EXPECT_TRUE(opens("0000000000000000"));
}

TEST_F(QtFileViewerTest, WhatItOpensEndsWhenNobodyReadsItThoughThisProgramDoesNot) {
  home.write("bin/xdg-open", "#!/bin/sh\n/bin/sh -c 'kill -PIPE $$'\necho $? > " + opened.string());
  const auto before = std::signal(SIGPIPE, SIG_IGN);
  viewer.openURL("https://example.org/");
  std::signal(SIGPIPE, before);
  EXPECT_TRUE(opens(std::to_string(128 + SIGPIPE)));
}

TEST_F(QtFileViewerTest, LogsThatNothingCanOpenAnAddress) {
  fs::remove(home.path() / "bin" / "xdg-open");
  viewer.openURL("https://example.org/");
  EXPECT_EQ(log.lines(), Lines{"Tilwin: there is no program to open https://example.org/"});
}

TEST_F(QtFileViewerTest, OpensNothingThatIsNoAddress) {
  viewer.openURL("--help");
  viewer.openURL("");
  EXPECT_EQ(log.lines(), (Lines{"Tilwin: not an address: --help", "Tilwin: not an address: "}));
  EXPECT_FALSE(fs::exists(opened));
}

TEST_F(QtFileViewerTest, OpensTheFolderOfAFileWithoutABus) {
  home.write("data/Tilwin/50% done #1.jsonl", "");
  viewer.reveal(home.data() / "Tilwin" / "50% done #1.jsonl");
  EXPECT_TRUE(opens("xdg file://" + (home.data() / "Tilwin").string()));
  EXPECT_EQ(log.lines(), Lines());
}

TEST_F(QtFileViewerTest, OpensTheNearestFolderThatExists) {
  viewer.reveal(home.data() / "Tilwin" / "shadow.jsonl");
  EXPECT_TRUE(opens("xdg file://" + home.data().string()));
}

TEST_F(QtFileViewerTest, OpensAFolderItself) {
  viewer.reveal(home.data());
  EXPECT_TRUE(opens("xdg file://" + home.data().string()));
}

struct QtFileViewerOnABusTest : QtFileViewerTest {
  [[nodiscard]] std::string address() const { return bus.environment().get("DBUS_SESSION_BUS_ADDRESS"); }
  [[nodiscard]] static desktop::Environment bare() {
    desktop::Environment environment;
    environment.set("PATH", "/usr/bin:/bin");
    // No folder of services, so that no real file manager is started.
    environment.set("XDG_DATA_DIRS", "/nonexistent");
    return environment;
  }

  EnvironmentVariable usualPath{"PATH", "/usr/bin:/bin"};
  desktop::SessionBus bus{home, home.environment().with(bare())};
  EnvironmentVariable ownPath{"PATH", (home.path() / "bin").c_str()};
  EnvironmentVariable busAddress{"DBUS_SESSION_BUS_ADDRESS", address().c_str()};
};

TEST_F(QtFileViewerOnABusTest, SelectsAFileInTheFileManager) {
  FileManager manager(QString::fromStdString(address()), true);
  home.write("data/Tilwin/50% done #1.jsonl", "");
  viewer.reveal(home.data() / "Tilwin" / "50% done #1.jsonl");
  ASSERT_TRUE(runMainLoopUntil([&] { return !manager.calls.empty(); }, desktop::startTimeout));
  EXPECT_EQ(manager.calls,
            Lines{"ShowItems file://" + (home.data() / "Tilwin").string() + "/50%25%20done%20%231.jsonl"});
  runMainLoop(50ms);
  EXPECT_FALSE(fs::exists(opened));
}

TEST_F(QtFileViewerOnABusTest, OpensTheFolderIfTheFileManagerRefuses) {
  const FileManager manager(QString::fromStdString(address()), false);
  home.write("data/log", "");
  viewer.reveal(home.data() / "log");
  EXPECT_TRUE(opens("xdg file://" + home.data().string()));
}

TEST_F(QtFileViewerOnABusTest, OpensTheFolderIfThereIsNoFileManager) {
  home.write("data/log", "");
  viewer.reveal(home.data() / "log");
  EXPECT_TRUE(opens("xdg file://" + home.data().string()));
}

TEST_F(QtFileViewerOnABusTest, OpensTheFolderOnceTheBusHasGone) {
  home.write("data/log", "");
  viewer.reveal(home.data() / "log");
  ASSERT_TRUE(opens("xdg file://" + home.data().string()));
  bus.process().end();
  fs::remove(opened);
  viewer.reveal(home.data() / "log");
  EXPECT_TRUE(opens("xdg file://" + home.data().string()));
}

}  // namespace
}  // namespace tilwin::contract
