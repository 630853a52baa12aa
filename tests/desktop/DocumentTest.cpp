#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/desktop/CommandCalls.h"

namespace tilwin::desktop {

namespace {

/// What builds and installs is no matter of a desktop; the build machine runs these.
constexpr std::array elsewhere = std::to_array<std::string_view>({"scripts/", "sudo apt install"});
/// What goes on until it is ended.
constexpr std::array endless = std::to_array<std::string_view>({"gdbus monitor"});

template <typename Prefixes>
bool beginsWithOneOf(const Prefixes& prefixes, const std::string& line) {
  return std::ranges::any_of(prefixes, [&](std::string_view each) { return line.starts_with(each); });
}

/// The lines of all blocks that are for a shell.
std::vector<std::string> commandLinesOf(const std::filesystem::path& document) {
  std::vector<std::string> lines;
  std::ifstream text(document);
  bool isForShell = false;
  for (std::string line; std::getline(text, line);) {
    if (line.starts_with("```")) {
      isForShell = line == "```sh";
    } else if (isForShell && !line.empty()) {
      lines.push_back(line);
    }
  }
  return lines;
}

std::vector<std::filesystem::path> documents() {
  const std::filesystem::path folder = TILWIN_DOCS;
  std::vector<std::filesystem::path> all{folder.parent_path() / "README.md"};
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == ".md") all.push_back(entry.path());
  }
  return all;
}

/// Somebody copies the lines of the documents into a shell, on a desktop where what they name is there.
class Documents : public Commands {
protected:
  void SetUp() override {
    endTilwin();
    restartTilwinWith(
        R"({"customAreas":[{"id":"5E1B7C1C-0000-4000-8000-000000000001","name":"Reading column",)"
        R"("rect":{"x":0.25,"y":0,"width":0.5,"height":1}}]})");
    session().desktop().activate(terminal_.id());
  }
  void TearDown() override {
    endTilwin();
    std::filesystem::remove_all(settingsFolder());
    restartTilwin();
  }

  static ChildProcess start(const std::string& line) {
    auto environment = session().environment();
    environment.set("PATH", arguments().tilwin.parent_path().string() + ":" + environment.get("PATH"));
    return ChildProcess::start({.argv = {"sh", "-c", line},
                                .environment = environment,
                                .outputFile = session().home().log("line"),
                                .errorFile = session().home().log("line")});
  }
  static testing::AssertionResult works(const std::string& line) {
    call({"layout", "save", "Writing"});
    auto process = start(line);
    if (beginsWithOneOf(endless, line)) {
      const bool ended = process.waitFor(Milliseconds{500}).has_value();
      return ended ? testing::AssertionFailure() << "it ended: " << process.output()
                   : testing::AssertionSuccess();
    }
    if (process.waitFor(startTimeout) == done) return testing::AssertionSuccess();
    return testing::AssertionFailure() << process.output();
  }

  TestWindow browser_ = session().window({.instance = "firefox", .className = "firefox", .title = "News"});
  TestWindow terminal_ = session().window({.instance = "xterm", .className = "XTerm", .title = "shell"});
};

}  // namespace

TEST_F(Documents, HaveNoCommandLineThatDoesNotWork) {
  std::size_t count = 0;
  for (const auto& document : documents()) {
    for (const std::string& line : commandLinesOf(document)) {
      if (beginsWithOneOf(elsewhere, line)) {
        std::cout << "not run on a desktop: " << line << "\n";
        continue;
      }
      EXPECT_TRUE(works(line)) << document.filename() << ": " << line;
      ++count;
    }
  }
  EXPECT_GE(count, 15U);
}

}  // namespace tilwin::desktop
