#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/desktop/harness/Manager.h"

namespace tilwin::desktop {

/// Names a test after the window manager it runs under.
inline std::string nameOfManager(const testing::TestParamInfo<Manager>& parameter) {
  return traits(parameter.param).name;
}

}  // namespace tilwin::desktop
