#include <gtest/gtest.h>

#include <QApplication>
#include <QEvent>
#include <QPointer>

#include "tests/contract/MainLoop.h"
#include "tests/contract/SampleForm.h"
#include "tests/contract/qt/QtSettingsDriver.h"

namespace tilwin::contract {
namespace {

/// Tells when a window has painted for the first time.
class FirstPaint final : public QObject {
public:
  FirstPaint() { QCoreApplication::instance()->installEventFilter(this); }

  std::optional<desktop::Clock::time_point> at;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    // The rest is painted and all of it sent to the server when this event has been handled.
    if (!at && event->type() == QEvent::Paint && watched->objectName() == QLatin1String("settings")) {
      QMetaObject::invokeMethod(
          this,
          [this] {
            if (!at) at = desktop::Clock::now();
          },
          Qt::QueuedConnection);
    }
    return false;
  }
};

long long millisecondsToOpen(QtSettingsDriver& driver, const std::string& section) {
  const auto form = sampleForm(section);
  FirstPaint paint;
  const auto start = desktop::Clock::now();
  driver.window().show(form);
  driver.settle(
      [&] { return QtSettingsDriver::frame()->testAttribute(Qt::WA_Mapped) && driver.isInFront(); });
  driver.settle([&] { return paint.at.has_value(); });
  return std::chrono::duration_cast<desktop::Milliseconds>(paint.at.value_or(desktop::Clock::now()) - start)
      .count();
}

TEST(QtSettingsCost, TheWindowOpensInAMoment) {
  QtSettingsDriver driver;
  for (const char* section : {"spacing", "shortcuts", "areas"}) {
    const auto time = millisecondsToOpen(driver, section);
    driver.window().close();
    QtSettingsDriver::letArrive();
    testing::Test::RecordProperty(std::string("open_") + section + "_ms", static_cast<int>(time));
    // Meant for an optimised build; generous enough for one with sanitizers.
    EXPECT_LT(time, 1500) << section;
  }
}

TEST(QtSettingsCost, ClosingGivesItsWidgetsBack) {
  QtSettingsDriver driver;
  runMainLoop(desktop::Milliseconds{50});
  const auto before = QApplication::allWidgets().size();
  for (int turn = 0; turn < 3; ++turn) {
    driver.window().show(sampleForm("shortcuts"));
    ASSERT_TRUE(driver.settle([&] { return driver.isInFront(); }));
    EXPECT_GT(QApplication::allWidgets().size(), before + 100);
    driver.window().close();
    EXPECT_TRUE(driver.settle([&] { return QApplication::allWidgets().size() == before; }));
  }
}

TEST(QtSettingsCost, AForgottenSectionGivesItsWidgetsBack) {
  QtSettingsDriver driver;
  driver.window().show(sampleForm("spacing"));
  QtSettingsDriver::letArrive();
  const auto small = QApplication::allWidgets().size();
  driver.window().update(sampleForm("shortcuts"));
  driver.window().update(sampleForm("spacing"));
  EXPECT_TRUE(driver.settle([&] { return QApplication::allWidgets().size() == small; }));
}

}  // namespace
}  // namespace tilwin::contract
