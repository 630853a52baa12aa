#pragma once

#include <string_view>

namespace tilwin {

/// Where failures go that the user need not see.
class SystemLog {
public:
  SystemLog() = default;
  SystemLog(const SystemLog&) = delete;
  SystemLog& operator=(const SystemLog&) = delete;
  virtual ~SystemLog() = default;

  /// Writes one line, without a newline of its own.
  virtual void write(std::string_view line) = 0;
};

}  // namespace tilwin
