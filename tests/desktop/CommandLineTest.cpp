#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <string>

#include "tests/desktop/DesktopTest.h"
#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

/// Accepts whoever connects to an X display of this number, for as long as it lives.
class ListeningDisplay {
public:
  explicit ListeningDisplay(int number)
      : path_("/tmp/.X11-unix/X" + std::to_string(number)),
        socket_(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0)) {
    std::filesystem::create_directories(path_.parent_path());
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path_.string().copy(static_cast<char*>(address.sun_path), sizeof address.sun_path - 1);
    ::unlink(path_.c_str());
    if (::bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(socket_, 4) != 0)
      throw HarnessError("cannot listen at " + path_.string());
  }
  ListeningDisplay(const ListeningDisplay&) = delete;
  ListeningDisplay& operator=(const ListeningDisplay&) = delete;
  ~ListeningDisplay() {
    for (const int each : {socket_, caller_}) ::close(each);
    ::unlink(path_.c_str());
  }

  /// Whether somebody connects within that time, who then waits for an answer that never comes.
  [[nodiscard]] bool isConnectedTo(Milliseconds patience = Milliseconds{0}) {
    pollfd waiting{.fd = socket_, .events = POLLIN, .revents = 0};
    ::poll(&waiting, 1, static_cast<int>(patience.count()));
    caller_ = ::accept(socket_, nullptr, nullptr);
    return caller_ >= 0;
  }

private:
  std::filesystem::path path_;
  int socket_;
  int caller_ = -1;
};

/// The finished program asked for one thing, without a desktop.
class CommandLine : public testing::Test {
protected:
  ChildProcess start(const std::string& argument, const Environment& environment) {
    return ChildProcess::start({.argv = {arguments().tilwin.string(), argument},
                                .environment = home_.environment().with(environment),
                                .outputFile = home_.log("tilwin"),
                                .errorFile = home_.log("tilwin-errors")});
  }
  std::string outputOf(const std::string& argument, const Environment& environment = {}) {
    auto tilwin = start(argument, environment);
    EXPECT_EQ(tilwin.waitFor(answerTimeout), (ExitStatus{.code = 0, .signal = std::nullopt}));
    EXPECT_EQ(tilwin.errorOutput(), "");
    return tilwin.output();
  }

  void writeLog(const std::string& lines) { home_.write("data/Tilwin/shadow.jsonl", lines); }

  PrivateHome home_;
};

/// A snap that was undone.
constexpr const char* line =
    R"({"at":"2026-03-01T09:30:00Z","distance":2.5,"dwell":0.3,"follow":"restoredOrMovedAway","neighbour":false,)"
    R"("rule":true,"screen":"1440x900","settled":0.9,"speed":120,"v":1,"zone":"leftHalf"})"
    "\n";

}  // namespace

TEST_F(CommandLine, ShadowReportIsPrintedWithoutADisplay) {
  writeLog(std::string(line) + "garbage\n" + line);
  Environment clock;
  clock.set("TZ", "UTC");
  EXPECT_EQ(
      outputOf("--shadow-report", clock),
      "Tilwin drag report (recorded on this computer, never sent anywhere)\n"
      "Period: Mar 1, 2026 to Mar 1, 2026\n"
      "Drags that ended near a screen edge: 2\n"
      "  Snapped by today's rule: 2   (undone or moved away within seconds: 2, 100%; left alone: 0)\n"
      "  Not snapped: 0   (then done by hand within seconds: 0, n/a at least; left alone: 0)\n"
      "Learned model, replayed over the same drags:\n"
      "  Would have decided differently on 0 drags; matched your correction where the rule did not on 0, "
      "the rule matched where the model did not on 0.\n"
      "  Evidence for the model over the rule: 0.0 standard errors (about 2.5 or more is convincing).\n"
      "Verdict: not enough drags yet (2 of 50 needed). Keep using Tilwin and run this again.\n");
}

TEST_F(CommandLine, ShadowReportDoesNotTouchTheXServer) {
  constexpr int number = 986;
  ListeningDisplay display(number);
  Environment environment;
  environment.set("DISPLAY", ":" + std::to_string(number));
  EXPECT_NE(outputOf("--shadow-report", environment).find("Verdict: "), std::string::npos);
  EXPECT_FALSE(display.isConnectedTo());
}

TEST_F(CommandLine, StatusCanBeInterruptedWhileTheServerDoesNotAnswer) {
  constexpr int number = 987;
  ListeningDisplay display(number);
  Environment environment;
  environment.set("DISPLAY", ":" + std::to_string(number));
  auto tilwin = start("--status", environment);
  ASSERT_TRUE(display.isConnectedTo(answerTimeout));
  tilwin.signal(SIGINT);
  EXPECT_EQ(tilwin.waitFor(answerTimeout), (ExitStatus{.code = std::nullopt, .signal = SIGINT}));
}

TEST_F(CommandLine, ShadowReportOfALogThatIsNotThereSaysSoManyDragsAreMissing) {
  EXPECT_NE(outputOf("--shadow-report").find("Verdict: not enough drags yet (0 of 50 needed)."),
            std::string::npos);
}

TEST_F(CommandLine, ShadowReportLeavesTheLogAsItIs) {
  const std::string lines = std::string(line) + "garbage\n" + line;
  writeLog(lines);
  const auto log = home_.data() / "Tilwin" / "shadow.jsonl";
  const auto before = std::filesystem::last_write_time(log);
  static_cast<void>(outputOf("--shadow-report"));
  EXPECT_EQ(std::filesystem::last_write_time(log), before);
  EXPECT_EQ(std::filesystem::file_size(log), lines.size());
}

}  // namespace tilwin::desktop
