// For the whole program: starts a desktop, and leaves it to the program to become an application on it.

#include <gtest/gtest.h>

#include "platform/macos/support/Held.h"
#include "tests/macos/desktop/MacDesktop.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const tilwin::macos::MacDesktop desktop;
  const tilwin::macos::AutoreleasePool pool;
  return RUN_ALL_TESTS();
}
