#pragma once

#include "platform/ports/SystemLog.h"

namespace tilwin::macos {

/// The unified log, and standard error if that is a terminal or a file, by NSLog (macOS 10.0). Any thread.
class MacSystemLog final : public SystemLog {
public:
  /// Bytes of a line that is not UTF-8 are read as Latin-1, so that no line is lost.
  void write(std::string_view line) override;
};

}  // namespace tilwin::macos
