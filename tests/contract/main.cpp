// For adapters that need an application and leave nothing running behind.

#include <gtest/gtest.h>

#include <QCoreApplication>

#include "tests/desktop/harness/ExitGuard.h"

int main(int argc, char** argv) {
  const tilwin::desktop::EndOnSignal endOnSignal;
  const QCoreApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
