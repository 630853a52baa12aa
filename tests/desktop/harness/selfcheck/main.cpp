#include <gtest/gtest.h>
#include <unistd.h>

#include <iostream>
#include <string_view>

#include "tests/desktop/harness/ExitGuard.h"
#include "tests/desktop/harness/Session.h"

namespace {

/// Holds a whole session open, for a test that ends this process from outside.
int hold() {
  using namespace tilwin::desktop;
  Session session;
  const auto terminal = session.open(Application::xterm);
  std::cout << session.home().path().string() << std::endl;
  while (true) pause();
}

}  // namespace

int main(int argc, char** argv) {
  const tilwin::desktop::EndOnSignal endOnSignal;
  if (argc == 2 && std::string_view(argv[1]) == "--hold-session") return hold();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
