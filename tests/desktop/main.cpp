#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "tests/desktop/DesktopTest.h"
#include "tests/desktop/harness/ExitGuard.h"

namespace {

[[noreturn]] void usage() {
  std::fprintf(stderr, "to be given: --tilwin PROGRAM --window-manager %s [--pictures FOLDER]\n",
               tilwin::desktop::managerNames().c_str());
  std::exit(2);
}

}  // namespace

int main(int argc, char** argv) {
  const tilwin::desktop::EndOnSignal endOnSignal;
  testing::InitGoogleTest(&argc, argv);
  auto& arguments = tilwin::desktop::arguments();
  for (int index = 1; index + 1 < argc; index += 2) {
    const std::string_view option = argv[index];
    if (option == "--tilwin") {
      arguments.tilwin = std::filesystem::absolute(argv[index + 1]);
    } else if (option == "--window-manager") {
      const auto manager = tilwin::desktop::managerNamed(argv[index + 1]);
      if (!manager) usage();
      arguments.manager = *manager;
    } else if (option == "--pictures") {
      arguments.pictures = std::filesystem::absolute(argv[index + 1]);
    } else {
      usage();
    }
  }
  if (arguments.tilwin.empty()) usage();
  return RUN_ALL_TESTS();
}
