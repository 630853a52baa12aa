#include <gtest/gtest.h>

#include <QDebug>
#include <string>
#include <thread>
#include <vector>

#include "platform/qt/BeforeMessages.h"
#include "platform/qt/QtSystemLog.h"

namespace tilwin::contract {
namespace {

using Lines = std::vector<std::string>;

/// What is said while this lives.
class Said {
public:
  Said() {
    lines().clear();
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& message) {
      lines().push_back(message.toStdString());
    });
  }
  Said(const Said&) = delete;
  Said& operator=(const Said&) = delete;
  ~Said() { qInstallMessageHandler(nullptr); }

  static Lines& lines() {
    static Lines all;
    return all;
  }
};

TEST(QtBeforeMessages, EachLineWaitsForTheTaskAndThoseOfTheTaskDoNot) {
  const Said said;
  const qt::BeforeMessages before([] {
    Said::lines().emplace_back("task");
    qWarning("what the task says");
  });
  qWarning("Qt's");
  qt::QtSystemLog().write("Tilwin's");
  EXPECT_EQ(Said::lines(), (Lines{"task", "Qt's", "task", "Tilwin's"}));
}

TEST(QtBeforeMessages, LinesOfOtherThreadsDoNotWait) {
  const Said said;
  const qt::BeforeMessages before([] { Said::lines().emplace_back("task"); });
  std::thread([] { qWarning("other"); }).join();
  EXPECT_EQ(Said::lines(), Lines{"other"});
}

TEST(QtBeforeMessages, LinesThatComeLaterDoNotWait) {
  const Said said;
  {
    const qt::BeforeMessages before([] { Said::lines().emplace_back("task"); });
  }
  qWarning("later");
  EXPECT_EQ(Said::lines(), Lines{"later"});
}

}  // namespace
}  // namespace tilwin::contract
