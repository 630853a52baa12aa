#pragma once

#include <QDebug>
#include <QString>

#include "platform/ports/SystemLog.h"

namespace tilwin::qt {

/// Writes through Qt's message handler: to standard error or to the systemd journal, as Qt decides.
class QtSystemLog : public SystemLog {
public:
  void write(std::string_view line) override {
    qInfo().noquote() << QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size()));
  }
};

}  // namespace tilwin::qt
