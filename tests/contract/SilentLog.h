#pragma once

#include "platform/ports/SystemLog.h"

namespace tilwin {

/// For tests that say nothing about what is logged.
class SilentLog : public SystemLog {
public:
  void write(std::string_view) override {}
};

}  // namespace tilwin
