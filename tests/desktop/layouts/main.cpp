#include <gtest/gtest.h>

#include <QCoreApplication>
#include <cstdio>
#include <string_view>

#include "tests/desktop/harness/ExitGuard.h"
#include "tests/desktop/layouts/LayoutDesktop.h"

int main(int argc, char** argv) {
  using tilwin::desktop::LayoutDesktop;
  const tilwin::desktop::EndOnSignal endOnSignal;
  const QCoreApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  const bool named = argc == 3 && std::string_view(argv[1]) == "--window-manager";
  const auto manager = named ? tilwin::desktop::managerNamed(argv[2]) : std::nullopt;
  if (!manager) {
    std::fputs("usage: layout-tests --window-manager openbox|xfwm4|metacity\n", stderr);
    return 2;
  }
  LayoutDesktop::manager = *manager;
  return RUN_ALL_TESTS();
}
