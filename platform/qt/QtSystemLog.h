#pragma once

#include "platform/ports/SystemLog.h"

namespace tilwin::qt {

/// Writes through Qt's message handler: to standard error, or to the journal where the session runs under it.
class QtSystemLog : public SystemLog {
public:
  void write(std::string_view line) override;
};

}  // namespace tilwin::qt
