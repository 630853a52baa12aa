#include "platform/qt/system/QtInstance.h"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <chrono>
#include <csignal>
#include <future>
#include <memory>
#include <string>

#include "tests/contract/MainLoop.h"
#include "tests/core/EnvironmentVariable.h"
#include "tests/desktop/harness/PrivateHome.h"
#include "tests/desktop/harness/Session.h"
#include "tests/desktop/harness/Waiting.h"

namespace tilwin::contract {
namespace {

using namespace std::chrono_literals;
using qt::QtInstance;
using SteadyClock = std::chrono::steady_clock;

/// On top of the patience given, on a machine that is busy.
constexpr std::chrono::milliseconds grace = 2s;

/// A session with a bus of its own.
struct QtInstanceTest : testing::Test {
  /// Starts an instance elsewhere and returns whether it is to go on running.
  static bool claimElsewhere(const std::string& display, std::chrono::milliseconds patience = 5s) {
    auto claimed = std::async(std::launch::async, [=] { return QtInstance(display, patience).claim(); });
    EXPECT_TRUE(runMainLoopUntil([&] { return claimed.wait_for(0s) == std::future_status::ready; },
                                 desktop::startTimeout));
    return claimed.get();
  }

  void listen() {
    first.onShowSettings([this] { ++shown; });
  }

  desktop::PrivateHome home;
  desktop::SessionBus bus{home, home.environment()};
  std::string address = bus.environment().get("DBUS_SESSION_BUS_ADDRESS");
  EnvironmentVariable busAddress{"DBUS_SESSION_BUS_ADDRESS", address.c_str()};
  QtInstance first{":0"};
  int shown = 0;
};

TEST_F(QtInstanceTest, TheSecondOneMakesTheFirstShowItsSettings) {
  EXPECT_TRUE(first.claim());
  listen();
  EXPECT_FALSE(claimElsewhere(":0"));
  EXPECT_TRUE(runMainLoopUntil([&] { return shown == 1; }, desktop::startTimeout));
  EXPECT_FALSE(claimElsewhere(":0.0")) << "another screen of the same display";
  EXPECT_TRUE(runMainLoopUntil([&] { return shown == 2; }, desktop::startTimeout));
}

TEST_F(QtInstanceTest, EachDisplayHasItsOwn) {
  EXPECT_TRUE(first.claim());
  listen();
  EXPECT_TRUE(claimElsewhere(":1"));
  EXPECT_TRUE(claimElsewhere("localhost:0"));
  runMainLoop(20ms);
  EXPECT_EQ(shown, 0);
}

TEST_F(QtInstanceTest, AnotherMayComeAfterItHasGone) {
  {
    QtInstance earlier(":0");
    EXPECT_TRUE(earlier.claim());
  }
  EXPECT_TRUE(first.claim());
}

TEST_F(QtInstanceTest, ARequestFromBeforeTheFirstListensIsKept) {
  EXPECT_TRUE(first.claim());
  EXPECT_FALSE(claimElsewhere(":0"));
  listen();
  EXPECT_TRUE(runMainLoopUntil([&] { return shown == 1; }, desktop::startTimeout));
}

TEST_F(QtInstanceTest, OfManyThatStartAtOnceOneGoesOn) {
  EXPECT_TRUE(first.claim());
  listen();
  std::vector<std::future<bool>> others;
  others.reserve(8);
  for (int each = 0; each < 8; ++each)
    others.push_back(std::async(std::launch::async, [] { return QtInstance(":0", 10s).claim(); }));
  EXPECT_TRUE(runMainLoopUntil([&] { return shown == 8; }, desktop::startTimeout));
  for (auto& other : others) EXPECT_FALSE(other.get());
}

TEST_F(QtInstanceTest, HandsOverWithinItsPatienceIfTheFirstDoesNotAnswer) {
  EXPECT_TRUE(first.claim());
  listen();
  // Here the main loop, in which the first would answer, does not run meanwhile.
  const auto start = SteadyClock::now();
  EXPECT_FALSE(QtInstance(":0", 300ms).claim());
  EXPECT_LT(SteadyClock::now() - start, 300ms + grace);
  EXPECT_TRUE(runMainLoopUntil([&] { return shown == 1; }, desktop::startTimeout))
      << "it answers once it can";
}

/// Owns the name of an instance, and leaves without an answer when it is asked for something.
class LeavingOwner : public QDBusVirtualObject {
public:
  explicit LeavingOwner(const std::string& address)
      : bus_(QDBusConnection::connectToBus(QString::fromStdString(address), QStringLiteral("leaving"))) {
    bus_.registerVirtualObject(QStringLiteral("/org/tilwin/Tilwin"), this);
    bus_.registerService(QString::fromStdString(QtInstance::serviceName(":0")));
  }
  LeavingOwner(const LeavingOwner&) = delete;
  LeavingOwner& operator=(const LeavingOwner&) = delete;
  ~LeavingOwner() override { leave(); }

private:
  void leave() {
    bus_ = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(QStringLiteral("leaving"));
  }
  [[nodiscard]] QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override {
    message.setDelayedReply(true);
    QMetaObject::invokeMethod(
        this, [this] { leave(); }, Qt::QueuedConnection);
    return true;
  }

  QDBusConnection bus_;
};

TEST_F(QtInstanceTest, TakesThePlaceOfOneThatLeavesWhenAsked) {
  const LeavingOwner owner(address);
  EXPECT_TRUE(claimElsewhere(":0"));
}

TEST_F(QtInstanceTest, RunsWithoutABus) {
  const EnvironmentVariable none("DBUS_SESSION_BUS_ADDRESS", nullptr);
  const EnvironmentVariable noRuntime("XDG_RUNTIME_DIR", nullptr);
  for (const auto& display : {":0", ""}) {
    QtInstance instance(display);
    EXPECT_TRUE(instance.claim());
    instance.onShowSettings([] { ADD_FAILURE() << "nobody asked"; });
    EXPECT_TRUE(QtInstance(display).claim());
  }
}

TEST_F(QtInstanceTest, RunsWithABusThatIsNotThere) {
  for (const char* const gone : {"unix:path=/nonexistent", "tcp:host=127.0.0.1,port=1", "nonsense"}) {
    const EnvironmentVariable named("DBUS_SESSION_BUS_ADDRESS", gone);
    EXPECT_TRUE(QtInstance(":0").claim()) << gone;
  }
}

TEST_F(QtInstanceTest, FindsTheBusOfTheUsersRuntimeFolder) {
  EXPECT_TRUE(first.claim());
  const EnvironmentVariable none("DBUS_SESSION_BUS_ADDRESS", nullptr);
  const EnvironmentVariable runtime("XDG_RUNTIME_DIR", home.runtime().c_str());
  EXPECT_FALSE(claimElsewhere(":0"));
}

TEST_F(QtInstanceTest, RunsWithinItsPatienceIfTheBusDoesNotAnswer) {
  bus.process().signal(SIGSTOP);
  const auto start = SteadyClock::now();
  EXPECT_TRUE(QtInstance(":0", 300ms).claim());
  EXPECT_LT(SteadyClock::now() - start, 300ms + grace);
  bus.process().signal(SIGCONT);
  EXPECT_TRUE(first.claim()) << "the bus answers again";
}

TEST_F(QtInstanceTest, LosingTheBusDoesNoHarm) {
  EXPECT_TRUE(first.claim());
  listen();
  bus.process().end();
  runMainLoop(50ms);
  EXPECT_TRUE(QtInstance(":0").claim()) << "nobody to hand over to";
  EXPECT_EQ(shown, 0);
}

TEST_F(QtInstanceTest, OtherCallsAreRefused) {
  EXPECT_TRUE(first.claim());
  listen();
  const auto ask = [&](const char* method) {
    auto other = QDBusConnection::connectToBus(QString::fromStdString(address), QStringLiteral("caller"));
    auto reply = other.asyncCall(QDBusMessage::createMethodCall(
        QString::fromStdString(QtInstance::serviceName(":0")), QStringLiteral("/org/tilwin/Tilwin"),
        QString(), QLatin1String(method)));
    EXPECT_TRUE(runMainLoopUntil([&] { return reply.isFinished(); }, desktop::startTimeout));
    QDBusConnection::disconnectFromBus(QStringLiteral("caller"));
    return reply.reply().type();
  };
  EXPECT_EQ(ask("Quit"), QDBusMessage::ErrorMessage);
  EXPECT_EQ(shown, 0);
  EXPECT_EQ(ask("ShowSettings"), QDBusMessage::ReplyMessage);
  EXPECT_TRUE(runMainLoopUntil([&] { return shown == 1; }, desktop::startTimeout));
}

TEST(QtInstanceName, IsValidOnTheBusAndTellsDisplaysApart) {
  EXPECT_EQ(QtInstance::serviceName(":0"), "org.tilwin.Tilwin.display_0");
  EXPECT_EQ(QtInstance::serviceName(":0.0"), "org.tilwin.Tilwin.display_0");
  EXPECT_EQ(QtInstance::serviceName(":0.1"), "org.tilwin.Tilwin.display_0");
  EXPECT_EQ(QtInstance::serviceName("unix:0"), "org.tilwin.Tilwin.display_0");
  EXPECT_EQ(QtInstance::serviceName(":12"), "org.tilwin.Tilwin.display_12");
  EXPECT_EQ(QtInstance::serviceName("far-away.example:10.0"),
            "org.tilwin.Tilwin.display_far_2daway_2eexample_10");
  EXPECT_EQ(QtInstance::serviceName("[::1]:3"), "org.tilwin.Tilwin.display__5b_3a_3a1_5d_3");
  EXPECT_EQ(QtInstance::serviceName(""), "org.tilwin.Tilwin.display_");
  EXPECT_EQ(QtInstance::serviceName("ü"), "org.tilwin.Tilwin.display__c3_bc");
}

}  // namespace
}  // namespace tilwin::contract
