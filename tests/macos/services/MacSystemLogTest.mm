#include "platform/macos/system/MacSystemLog.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <string>

#include "tests/TemporaryFolder.h"
#include "tests/core/support/FileText.h"

namespace tilwin::macos {
namespace {

/// What is written to standard error meanwhile.
std::string logged(std::string_view line) {
  const TemporaryFolder folder;
  const auto file = folder.path() / "log";
  const int kept = ::dup(STDERR_FILENO);
  const int sink = ::open(file.c_str(), O_CREAT | O_WRONLY, 0600);
  ::dup2(sink, STDERR_FILENO);
  MacSystemLog().write(line);
  ::dup2(kept, STDERR_FILENO);
  ::close(sink);
  ::close(kept);
  return textOf(file);
}

testing::AssertionResult endsIn(const std::string& whole, const std::string& end) {
  if (whole.ends_with(end)) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "\"" << whole << "\" does not end in \"" << end << "\"";
}

}  // namespace

TEST(MacSystemLog, WritesALineAsItStandsWhateverPercentSignsItHas) {
  for (const std::string line : {"Tilwin: plain", "100 %", "%@ %s %n %%", "ü – 窓", ""}) {
    EXPECT_TRUE(endsIn(logged(line), " " + line + "\n"));
  }
}

TEST(MacSystemLog, LosesNoLineThatIsNotUTF8) { EXPECT_TRUE(endsIn(logged("name \xfc%"), " name ü%\n")); }

}  // namespace tilwin::macos
