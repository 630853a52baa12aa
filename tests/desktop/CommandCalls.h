#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/desktop/DesktopTest.h"

namespace tilwin::desktop {

inline constexpr ExitStatus done{.code = 0, .signal = std::nullopt};

/// Somebody calls `tilwin` with a command, from a shell or a key binding.
class Commands : public DesktopTest {
protected:
  struct Call {
    ExitStatus status{.code = std::nullopt, .signal = std::nullopt};
    std::string output;
    std::string problem;
  };

  static Call call(const std::vector<std::string>& words,
                   const Environment& environment = session().environment()) {
    std::vector<std::string> argv{arguments().tilwin.string()};
    argv.insert(argv.end(), words.begin(), words.end());
    const std::string name = "call-" + std::to_string(++calls_);
    auto process = ChildProcess::start({.argv = argv,
                                        .environment = environment,
                                        .outputFile = session().home().log(name),
                                        .errorFile = session().home().log(name + "-errors")});
    const auto status = process.waitFor(startTimeout);
    return {status.value_or(ExitStatus{.code = std::nullopt, .signal = std::nullopt}), process.output(),
            process.errorOutput()};
  }
  /// Without a word, as a command that was carried out ends.
  static testing::AssertionResult isDone(const std::vector<std::string>& words) {
    const auto ended = call(words);
    if (ended.status == done && ended.problem.empty()) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << ended.output << ended.problem << "status " << testing::PrintToString(ended.status.code);
  }
  /// "tilwin watch", called in this environment, prints a shortcut's snap and ends when the program quits.
  static void watchAShortcut(const Environment& environment) {
    const TestWindow window = session().window();
    focusAtStart(window.id());
    auto watcher =
        ChildProcess::start({.argv = {arguments().tilwin.string(), "watch"},
                             .environment = environment,
                             .outputFile = session().home().log("watch-" + std::to_string(++calls_))});
    const auto prints = [&](const std::string& text) {
      return desktop().waitUntil([&] { return watcher.output().find(text) != std::string::npos; },
                                 answerTimeout);
    };
    // The first line tells that it watches.
    const auto doesWatch = [&] {
      call({"set", "gap", "3"});
      call({"set", "gap", "0"});
      return !watcher.output().empty();
    };
    ASSERT_TRUE(desktop().waitUntil(doesWatch, answerTimeout));
    EXPECT_TRUE(prints(R"({"event":"setting","key":"gap","value":0})"));
    press("Control+Alt+Right");
    ASSERT_TRUE(stands(window.id(), rightHalf));
    EXPECT_TRUE(prints(R"("action":"rightHalf"})")) << watcher.output();
    EXPECT_TRUE(isDone({"quit"}));
    EXPECT_EQ(watcher.waitFor(answerTimeout), done);
    restartTilwin();
  }

private:
  static inline int calls_ = 0;
};

}  // namespace tilwin::desktop
