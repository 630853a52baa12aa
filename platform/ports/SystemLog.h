#pragma once

#include <string_view>

namespace tilwin {

/// The log for failures that are not shown to the user.
class SystemLog {
public:
  SystemLog() = default;
  SystemLog(const SystemLog&) = delete;
  SystemLog& operator=(const SystemLog&) = delete;
  virtual ~SystemLog() = default;

  /// Writes one line; `line` does not end in a newline.
  virtual void write(std::string_view line) = 0;
};

}  // namespace tilwin
