#include "platform/x11/wire/FloodGate.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

#include "platform/qt/QtMainQueue.h"
#include "tests/contract/MainLoop.h"
#include "tests/contract/TestLogs.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::x11 {

namespace {

using desktop::Milliseconds;

constexpr Milliseconds somePauses{300};

/// A program that counts the changes of a root's property that it hears of, and reads it after them.
class X11FloodGate : public testing::Test {
protected:
  X11FloodGate() {
    setenv("DISPLAY", session_.server().display().c_str(), 1);
    x_.emplace(log_);
    gate_.emplace(*x_, queue_);
    queue_.watch(x_->fileDescriptor(), [this] { x_->dispatch(); });
    queue_.beforeEachSleep([this] { return x_->dispatchQueued(); });
    x_->onEvent(XCB_PROPERTY_NOTIFY, [this](const xcb_generic_event_t& event) {
      const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
      if (change.window == x_->root() && change.atom == x_->atom(Atom::netWorkarea)) ++heard_;
    });
  }

  void change(int times) {
    for (int count = 0; count < times; ++count) {
      xcb_change_property(hostile().get(), XCB_PROP_MODE_APPEND, hostile().root(),
                          hostile().atom("_NET_WORKAREA"), XCB_ATOM_CARDINAL, 32, 0, nullptr);
    }
    hostile().sync();
  }

  desktop::XConnection& hostile() { return hostile_; }

  desktop::Session session_;
  desktop::XConnection hostile_{session_.server().display()};
  FailingLog log_;
  qt::QtMainQueue queue_;
  std::optional<X11Connection> x_;
  std::optional<FloodGate> gate_;
  int heard_ = 0;
};

}  // namespace

TEST_F(X11FloodGate, AFewChangesAreHeardOfOneByOne) {
  change(20);
  runMainLoop(somePauses);
  EXPECT_EQ(heard_, 20);
}

TEST_F(X11FloodGate, OfAFloodAFewAreHeardOfAndAfterItOnceMore) {
  change(2 * FloodGate::most);
  runMainLoop(Milliseconds{20});
  const int atFirst = heard_;
  EXPECT_GE(atFirst, FloodGate::most);
  change(20 * FloodGate::most);
  runMainLoop(somePauses);
  EXPECT_LE(heard_, atFirst + FloodGate::most);
  EXPECT_GT(heard_, atFirst);
}

TEST_F(X11FloodGate, AfterAFloodEverythingIsHeardOfAgain) {
  change(3 * FloodGate::most);
  runMainLoop(somePauses);
  const int before = heard_;
  change(1);
  runMainLoop(somePauses);
  EXPECT_EQ(heard_, before + 1);
}

}  // namespace tilwin::x11
