#include <gtest/gtest.h>

#include <QImage>
#include <QSize>
#include <string>
#include <utility>

#include "tests/contract/MainLoop.h"
#include "tests/contract/qt/IconOnScreen.h"
#include "tests/contract/qt/Pictures.h"
#include "tests/contract/qt/QtDesktop.h"
#include "tests/desktop/harness/Screenshot.h"

namespace tilwin::contract {
namespace {

/// Another process that shows the icon, with this variable in its environment.
desktop::ChildProcess startIcon(const std::string& variable, const std::string& value) {
  auto environment = qtDesktop().environment();
  environment.set(variable, value);
  return desktop::ChildProcess::start({.argv = {INTERFACE_PROGRAM, "icon"},
                                       .environment = environment,
                                       .outputFile = qtDesktop().home().log("icon")});
}

TEST(StatusItemAtTwiceTheScale, IsDrawnInThePixelsOfItsPanel) {
  const auto program = startIcon("QT_SCALE_FACTOR", "2");
  for (const auto& [side, size] : {std::pair{22, QSize(16, 14)}, {44, QSize(32, 28)}}) {
    const auto panel = startPlain(Panel::tint2, PanelLook::light, side);
    ASSERT_TRUE(runMainLoopUntil([] { return findIcon().has_value(); }, desktop::startTimeout));
    EXPECT_TRUE(runMainLoopUntil([&, size = size] { return findIcon() && findIcon()->area.size() == size; },
                                 desktop::answerTimeout))
        << findIcon()->area.width() << " x " << findIcon()->area.height();
    findIcon()->picture.save(QString::fromStdString(pictureFile("icon-twice-" + std::to_string(side))));
  }
}

TEST(StatusItemWithoutASessionBus, IsInTheTrayWithItsMenu) {
  auto& session = qtDesktop();
  const auto panel = startPlain(Panel::tint2);
  const auto program = startIcon("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
  ASSERT_TRUE(runMainLoopUntil([] { return findIcon().has_value(); }, desktop::startTimeout));
  const auto look = [&] { return desktop::screenshot(session.desktop().connection()); };
  const auto changed = [&](const QImage& before) {
    return session.desktop().waitUntil([&] { return look() != before; });
  };
  const QImage closed = look();
  session.input().click(findIcon()->centre());
  ASSERT_TRUE(changed(closed));
  const QImage open = look();
  session.input().press("Down");
  ASSERT_TRUE(changed(open));
  session.input().press("Return");
  EXPECT_TRUE(session.desktop().waitUntil([&] { return program.output() == "first\n"; })) << program.output();
}

}  // namespace
}  // namespace tilwin::contract
