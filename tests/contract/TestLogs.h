#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/ports/SystemLog.h"

namespace tilwin {

/// For tests that do not check what is logged.
class SilentLog : public SystemLog {
public:
  void write(std::string_view) override {}
};

/// For tests in which nothing may be logged.
class FailingLog : public SystemLog {
public:
  void write(std::string_view line) override { ADD_FAILURE() << "logged: " << line; }
};

/// For tests that say what is logged.
class KeptLog : public SystemLog {
public:
  void write(std::string_view line) override { lines.emplace_back(line); }

  std::vector<std::string> lines;
};

}  // namespace tilwin
