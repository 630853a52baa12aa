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

private:
  static inline int calls_ = 0;
};

}  // namespace tilwin::desktop
