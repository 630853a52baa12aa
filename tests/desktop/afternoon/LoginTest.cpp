#include <gtest/gtest.h>

#include "tests/desktop/DesktopTest.h"
#include "tests/desktop/harness/Panel.h"
#include "tests/desktop/harness/StatusIcon.h"

namespace tilwin::desktop {

namespace {

/// The programs of a desktop that start when a person logs in, in an order that nobody guarantees.
class AtLogin : public testing::TestWithParam<Panel> {};

std::string panelName(const testing::TestParamInfo<Panel>& info) {
  return info.param == Panel::tint2 ? "tint2" : "xfce4_panel";
}

}  // namespace

TEST_P(AtLogin, TheIconComesWhenAPanelStartsAfterTilwin) {
  Session session;
  TilwinProcess tilwin(session, arguments().tilwin);
  StatusIcon icon(session);
  EXPECT_FALSE(icon.area());
  const auto panel = startPanel(session, GetParam());
  ASSERT_TRUE(icon.appears()) << tilwin.log();
  icon.choose({row::quit});
  EXPECT_EQ(tilwin.process().waitFor(answerTimeout), (ExitStatus{.code = 0, .signal = std::nullopt}));
}

TEST_P(AtLogin, TheIconComesWhenTheWindowManagerAndThePanelStartAfterTilwin) {
  Session session;
  session.manager().stop();
  const auto tilwin = session.start("tilwin", {arguments().tilwin.string()});
  const auto waits = [&] { return tilwin.output().find("no EWMH window manager") != std::string::npos; };
  ASSERT_TRUE(session.desktop().waitUntil(waits, startTimeout));
  const auto panel = startPanel(session, GetParam());
  session.manager().start();
  StatusIcon icon(session);
  EXPECT_TRUE(icon.appears()) << tilwin.output();
}

TEST_P(AtLogin, TheIconComesBackWithAPanelThatWasRestarted) {
  Session session;
  const TilwinProcess tilwin(session, arguments().tilwin);
  StatusIcon icon(session);
  auto panel = startPanel(session, GetParam());
  ASSERT_TRUE(icon.appears());
  panel.end();
  ASSERT_TRUE(icon.disappears());
  panel = startPanel(session, GetParam());
  EXPECT_TRUE(icon.appears());
}

INSTANTIATE_TEST_SUITE_P(Panels, AtLogin, testing::Values(Panel::tint2, Panel::xfce), panelName);

}  // namespace tilwin::desktop
