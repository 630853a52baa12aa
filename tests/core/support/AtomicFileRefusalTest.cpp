// The system refuses what replacing a file asks of it.

#include <gmock/gmock.h>
#include <sys/syscall.h>

#include "core/support/AtomicFile.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/support/ChildProcess.h"
#include "tests/core/support/FileText.h"
#include "tests/core/support/RefusedCalls.h"

namespace tilwin {
namespace {

using testing::ElementsAre;

struct AtomicFileRefusal : testing::TestWithParam<long> {};

TEST_P(AtomicFileRefusal, LeavesTheOldFileAndNothingBesideIt) {
  const TemporaryFolder folder;
  const std::filesystem::path path = folder.path() / "layouts.json";
  writeText(path, "old");
  const auto outcome = inChild([&] {
    refuseCall(GetParam(), EPERM);
    AtomicFile::replace(path, "new");
  });
  EXPECT_EQ(outcome, ChildOutcome::threw);
  EXPECT_EQ(textOf(path), "old");
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("layouts.json"));
}

INSTANTIATE_TEST_SUITE_P(OfPermissionsOrOfTheDisk, AtomicFileRefusal,
                         testing::Values(SYS_fchmod, SYS_write, SYS_fsync));

}  // namespace
}  // namespace tilwin
