#include "platform/qt/system/XdgLoginService.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>

#include "tests/TemporaryFolder.h"
#include "tests/contract/SystemContract.h"
#include "tests/contract/UnknownUser.h"
#include "tests/core/EnvironmentVariable.h"
#include "tests/core/support/FileText.h"
#include "tests/desktop/harness/ChildProcess.h"
#include "tests/desktop/harness/PrivateHome.h"

namespace tilwin::contract {
namespace {

namespace fs = std::filesystem;
using Status = LoginService::Status;

class XdgLoginWorld : public LoginWorld {
public:
  LoginService& service() override { return service_; }
  /// A file where the folder should be; as root, permissions would not do.
  void refuse() override { writeText(home_.path() / "autostart", "in the way"); }

private:
  TemporaryFolder home_;
  EnvironmentVariable config_{"XDG_CONFIG_HOME", home_.path().c_str()};
  qt::XdgLoginService service_{"/usr/bin/true"};
};

std::unique_ptr<LoginWorld> makeXdgLoginWorld() { return std::make_unique<XdgLoginWorld>(); }

struct XdgLoginServiceTest : testing::Test {
  void write(std::string_view text) {
    fs::create_directories(entry.parent_path());
    writeText(entry, text);
  }

  TemporaryFolder home;
  EnvironmentVariable itsPath{"HOME", home.path().c_str()};
  EnvironmentVariable config{"XDG_CONFIG_HOME", (home.path() / "config").c_str()};
  fs::path entry = home.path() / "config" / "autostart" / "tilwin.desktop";
  qt::XdgLoginService service{"/usr/bin/true"};
};

TEST_F(XdgLoginServiceTest, TheEntryStartsTheExecutable) {
  EXPECT_EQ(service.registerProgram(), std::nullopt);
  EXPECT_EQ(textOf(entry),
            "[Desktop Entry]\nType=Application\nVersion=1.5\nName=Tilwin\nComment=Snaps windows into place\n"
            "TryExec=/usr/bin/true\nExec=\"/usr/bin/true\"\nTerminal=false\nStartupNotify=false\n");
  EXPECT_EQ(namesIn(entry.parent_path()), std::vector<std::string>{"tilwin.desktop"});
}

TEST_F(XdgLoginServiceTest, AskingAgainLeavesTheEntryAsItIs) {
  EXPECT_EQ(service.registerProgram(), std::nullopt);
  const auto past = fs::last_write_time(entry) - std::chrono::hours(1);
  fs::last_write_time(entry, past);
  EXPECT_EQ(service.registerProgram(), std::nullopt);
  EXPECT_EQ(fs::last_write_time(entry), past);
}

TEST_F(XdgLoginServiceTest, AnEntryOfAnExecutableThatHasMovedIsReplaced) {
  EXPECT_EQ(qt::XdgLoginService("/opt/tilwin").registerProgram(), std::nullopt);
  EXPECT_EQ(service.registerProgram(), std::nullopt);
  EXPECT_NE(textOf(entry).find("Exec=\"/usr/bin/true\"\n"), std::string::npos);
}

TEST_F(XdgLoginServiceTest, LiesInTheHomeFolderUnlessTheEnvironmentNamesAnAbsolutePath) {
  for (const char* const named : {static_cast<const char*>(nullptr), "config", ""}) {
    const EnvironmentVariable other("XDG_CONFIG_HOME", named);
    EXPECT_EQ(service.registerProgram(), std::nullopt);
    EXPECT_TRUE(fs::exists(home.path() / ".config" / "autostart" / "tilwin.desktop"));
    EXPECT_EQ(service.unregisterProgram(), std::nullopt);
    EXPECT_FALSE(fs::exists(home.path() / ".config" / "autostart" / "tilwin.desktop"));
  }
  EXPECT_FALSE(fs::exists("config"));
}

TEST_F(XdgLoginServiceTest, AUserWithoutAHomeCannotRegister) {
  const EnvironmentVariable none("XDG_CONFIG_HOME", nullptr);
  const EnvironmentVariable homeless("HOME", nullptr);
  const UnknownUser user;
  if (!user.isOne()) return;  // what starts in a real home is not for tests
  EXPECT_EQ(service.registerProgram(), "there is no home folder");
  EXPECT_EQ(service.unregisterProgram(), "there is no home folder");
  EXPECT_EQ(service.status(), Status::notFound);
}

TEST_F(XdgLoginServiceTest, AnEntryThatADesktopTurnedOffIsNotRegistered) {
  const std::string on = "[Desktop Entry]\nType=Application\nExec=tilwin\n";
  for (const std::string off : {"Hidden=true\n", "X-GNOME-Autostart-enabled=false\n", " Hidden = true \r\n",
                                "X-MATE-Autostart-enabled=false"}) {
    write(on + off);
    EXPECT_EQ(service.status(), Status::notRegistered) << off;
    EXPECT_EQ(service.registerProgram(), std::nullopt);
    EXPECT_EQ(service.status(), Status::enabled);
  }
  for (const std::string other :
       {"Hidden=false\n", "X-GNOME-Autostart-enabled=true\n", "#Hidden=true\n", "[Other]\nHidden=true\n"}) {
    write(on + other);
    EXPECT_EQ(service.status(), Status::enabled) << other;
  }
}

TEST_F(XdgLoginServiceTest, AnEntryThatStartsNothingIsNotRegistered) {
  for (const char* const broken : {"", "[Desktop Entry]\n", "Exec=tilwin\n", "[Other]\nExec=tilwin\n",
                                   "[Desktop Entry]\nExec=\n", "\n\n=\n[\n"}) {
    write(broken);
    EXPECT_EQ(service.status(), Status::notRegistered) << broken;
  }
}

TEST_F(XdgLoginServiceTest, AnEntryWhoseProgramIsGoneIsNotRegistered) {
  const auto program = home.path() / "moved away\\here";
  fs::copy_file("/usr/bin/true", program);
  qt::XdgLoginService moved(program);
  EXPECT_EQ(moved.registerProgram(), std::nullopt);
  EXPECT_EQ(moved.status(), Status::enabled);
  fs::remove(program);
  EXPECT_EQ(moved.status(), Status::notRegistered);
}

TEST_F(XdgLoginServiceTest, WhatIsNoFileIsNotFoundAndNotRemoved) {
  fs::create_directories(entry / "something");
  EXPECT_EQ(service.status(), Status::notFound);
  EXPECT_NE(service.registerProgram(), std::nullopt);
  EXPECT_NE(service.unregisterProgram(), std::nullopt);
  EXPECT_TRUE(fs::exists(entry / "something"));
}

TEST_F(XdgLoginServiceTest, AnEntryInAFolderThatCannotBeReadIsNotFoundAndStays) {
  fs::create_directories(entry.parent_path().parent_path());
  fs::create_directory_symlink("autostart", entry.parent_path());
  EXPECT_EQ(service.status(), Status::notFound);
  EXPECT_NE(service.registerProgram(), std::nullopt);
  EXPECT_NE(service.unregisterProgram(), std::nullopt);
}

TEST_F(XdgLoginServiceTest, KnowsTheExecutableOfThisProcess) {
  EXPECT_EQ(qt::XdgLoginService::runningExecutable(), fs::canonical("/proc/self/exe"));
}

TEST_F(XdgLoginServiceTest, AnyPathIsStartedAsADesktopStartsIt) {
  const desktop::PrivateHome desk;
  const EnvironmentVariable its("XDG_CONFIG_HOME", desk.config().c_str());
  for (const std::string name : {"plain", "with space", "50%", "%f", "a\"b", "back\\slash", "$HOME", "`id`",
                                 "tab\there", "it's", "ü", "line\nfeed", "~;&|<>()#*?"}) {
    const auto mark = desk.path() / "started";
    const auto executable = desk.path() / "bin" / name;
    desk.write(fs::path("bin") / name, "#!/bin/sh\n: > " + mark.string() + "\n");
    fs::permissions(executable, fs::perms::owner_all);
    EXPECT_EQ(qt::XdgLoginService(executable).registerProgram(), std::nullopt);
    auto launcher = desktop::ChildProcess::start(
        {.argv = {"gio", "launch", (desk.config() / "autostart" / "tilwin.desktop").string()},
         .environment = desk.environment(),
         .outputFile = desk.log("gio")});
    EXPECT_EQ(launcher.waitFor(desktop::answerTimeout),
              (desktop::ExitStatus{.code = 0, .signal = std::nullopt}))
        << name << ": " << launcher.output();
    const auto until = desktop::Clock::now() + desktop::answerTimeout;
    while (!fs::exists(mark) && desktop::Clock::now() < until) ::usleep(1000);
    EXPECT_TRUE(fs::remove(mark)) << name;
  }
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Xdg, LoginServiceContract, testing::Values(&makeXdgLoginWorld));

}  // namespace tilwin::contract
