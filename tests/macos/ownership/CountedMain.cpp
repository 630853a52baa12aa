// For adapters to C interfaces: runs the tests and counts the owners of each object.

#include <gtest/gtest.h>

#include "tests/macos/ownership/OwnershipListener.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  // The listeners own it.
  testing::UnitTest::GetInstance()->listeners().Append(new tilwin::macos::OwnershipListener);
  return RUN_ALL_TESTS();
}
