#include "platform/qt/QtSystemLog.h"

#include <QDebug>
#include <QString>

namespace tilwin::qt {

void QtSystemLog::write(std::string_view line) {
  qInfo().noquote() << QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size()));
}

}  // namespace tilwin::qt
