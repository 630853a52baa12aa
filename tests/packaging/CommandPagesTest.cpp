#include "packaging/commands/CommandPages.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace tilwin {
namespace {

std::string contentOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(CommandPages, InTheSourceTreeAreThoseOfTheTable) {
  for (const CommandPage& page : CommandPages::all()) {
    EXPECT_EQ(contentOf(std::filesystem::path(TILWIN_SOURCE) / page.path), page.make())
        << page.path << " is stale: build tilwin-pages and run it with the source folder";
  }
}

}  // namespace
}  // namespace tilwin
