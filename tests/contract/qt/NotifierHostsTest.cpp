#include "platform/qt/menu/NotifierHosts.h"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>
#include <QVariant>

#include "platform/qt/bus/BusObject.h"
#include "tests/contract/MainLoop.h"
#include "tests/desktop/harness/Waiting.h"

namespace tilwin::contract {
namespace {

using Presence = qt::NotifierHosts::Presence;

constexpr const char* watcherName = "org.kde.StatusNotifierWatcher";

/// A watcher as the desktops have it whose panels come and go without it.
class LoneWatcher : public qt::BusObject {
public:
  LoneWatcher() : BusObject("/StatusNotifierWatcher", watcherName) {
    addProperty("IsStatusNotifierHostRegistered", "b", [this] { return QVariant(hasHost_); });
    offer(bus_);
    bus_.registerService(watcherName);
  }
  LoneWatcher(const LoneWatcher&) = delete;
  LoneWatcher& operator=(const LoneWatcher&) = delete;
  ~LoneWatcher() override {
    bus_.unregisterService(watcherName);
    bus_.unregisterObject(path());
  }

  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    if (!isSilent) return BusObject::handleMessage(message, connection);
    message.setDelayedReply(true);
    unanswered = message;
    return true;
  }
  void answerAtLast() { BusObject::handleMessage(unanswered, bus_); }
  void setHost(bool hasHost) {
    hasHost_ = hasHost;
    announce(hasHost ? "StatusNotifierHostRegistered" : "StatusNotifierHostUnregistered", {});
  }
  [[nodiscard]] QString name() const { return bus_.baseService(); }

  bool isSilent = false;
  QDBusMessage unanswered;

private:
  bool hasHost_ = false;
  QDBusConnection bus_ = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "lone-watcher");
};

struct NotifierHostsOnBus : testing::Test {
  bool becomes(Presence presence) {
    return runMainLoopUntil([&] { return hosts.presence() == presence; }, desktop::answerTimeout);
  }

  int changes = 0;
  qt::NotifierHosts hosts{QDBusConnection::sessionBus(), [this] { ++changes; }};
};

TEST_F(NotifierHostsOnBus, AreUnknownUntilTheBusHasAnsweredAndAbsentWithoutAWatcher) {
  EXPECT_EQ(hosts.presence(), Presence::unknown);
  EXPECT_EQ(changes, 0);
  EXPECT_TRUE(becomes(Presence::absent));
  EXPECT_EQ(changes, 1);
}

TEST_F(NotifierHostsOnBus, AreAbsentUntilOneRegistersWithTheWatcher) {
  LoneWatcher watcher;
  EXPECT_TRUE(becomes(Presence::absent));
  watcher.setHost(true);
  EXPECT_TRUE(becomes(Presence::present));
  EXPECT_EQ(hosts.watcher().toStdString(), watcher.name().toStdString());
  watcher.setHost(false);
  EXPECT_TRUE(becomes(Presence::absent));
}

TEST_F(NotifierHostsOnBus, AreAbsentWhenTheWatcherHasGone) {
  {
    LoneWatcher watcher;
    watcher.setHost(true);
    EXPECT_TRUE(becomes(Presence::present));
  }
  EXPECT_TRUE(becomes(Presence::absent));
  EXPECT_TRUE(hosts.watcher().isEmpty());
}

TEST_F(NotifierHostsOnBus, AreUnknownAsLongAsTheWatcherDoesNotAnswer) {
  LoneWatcher watcher;
  watcher.setHost(true);
  watcher.isSilent = true;
  ASSERT_TRUE(runMainLoopUntil([&] { return watcher.unanswered.type() == QDBusMessage::MethodCallMessage; },
                               desktop::answerTimeout));
  runMainLoop(desktop::Milliseconds{100});
  EXPECT_EQ(hosts.presence(), Presence::unknown);
  watcher.answerAtLast();
  EXPECT_TRUE(becomes(Presence::present));
}

TEST(NotifierHostsWithoutABus, AreAbsent) {
  const auto nowhere = QDBusConnection::connectToBus(QString("unix:path=/nonexistent"), QString("no-bus"));
  const qt::NotifierHosts hosts(nowhere, [] {});
  EXPECT_TRUE(runMainLoopUntil([&] { return hosts.presence() == Presence::absent; }, desktop::answerTimeout));
}

}  // namespace
}  // namespace tilwin::contract
