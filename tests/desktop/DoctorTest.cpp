#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <sstream>
#include <string>
#include <vector>

#include "tests/desktop/DesktopTest.h"
#include "tests/desktop/harness/GrabbedKey.h"
#include "tests/desktop/harness/Panel.h"

namespace tilwin::desktop {

namespace {

/// What `tilwin doctor` prints in this session; it never fails.
std::string doctorIn(Session& session, const std::vector<std::string>& options = {}) {
  static int calls = 0;
  std::vector<std::string> argv{arguments().tilwin.string(), "doctor"};
  argv.insert(argv.end(), options.begin(), options.end());
  auto process = session.start("doctor-" + std::to_string(++calls), argv);
  EXPECT_EQ(process.waitFor(startTimeout), (ExitStatus{.code = 0, .signal = std::nullopt}));
  return process.output();
}

testing::AssertionResult has(const std::string& report, const std::string& part) {
  if (report.find(part) != std::string::npos) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "not in the report: " << part << "\n" << report;
}

/// The line that ends so.
std::string lineEnding(const std::string& report, const std::string& end) {
  std::istringstream lines(report);
  for (std::string line; std::getline(lines, line);) {
    if (line.ends_with(end)) return line;
  }
  return {};
}

std::string framePart(const Extents& extents) {
  std::ostringstream text;
  text << " frame " << extents.left << " " << extents.right << " " << extents.top << " " << extents.bottom
       << " ";
  return text.str();
}

/// Somebody wants to know what is wrong.
class Doctor : public DesktopTest {
protected:
  static std::string report(const std::vector<std::string>& options = {}) {
    return doctorIn(session(), options);
  }
};

/// With openbox as its packages ship it.
class DoctorOfOpenbox : public testing::Test {};

constexpr const char* secretTitle = "Secret plan";
constexpr const char* secretClass = "SecretApp";

}  // namespace

TEST_F(Doctor, TellsNoNameOfAWindowUnlessItIsAskedFor) {
  const TestWindow window = session().window({.className = secretClass, .title = secretTitle});
  const auto plain = report();
  for (const char* secret : {secretTitle, secretClass, "testwindow"})
    EXPECT_EQ(plain.find(secret), std::string::npos) << plain;
  EXPECT_TRUE(has(report({"--names"}), std::string(secretClass) + ": " + secretTitle + "\n"));
}

TEST_F(Doctor, TellsTheFrameOfEachWindowByItsKind) {
  const TestWindow normal = session().window({.title = "A window"});
  const TestWindow dialog = session().window(
      {.title = "A dialog", .kind = WindowKind::dialog, .minimum = {120, 80}, .transientFor = normal.id()});
  const TestWindow drawn =
      session().window({.title = "Its own", .undecorated = true, .shadow = {26, 26, 23, 29}});
  desktop().settle();
  const auto text = report({"--names"});
  const auto line = [&](const std::string& title) { return lineEnding(text, ": " + title); };
  EXPECT_TRUE(line("A window").starts_with("  normal ")) << text;
  EXPECT_TRUE(has(line("A window"), framePart(desktop().frameExtents(normal.id())))) << text;
  EXPECT_TRUE(line("A dialog").starts_with("  dialog ")) << text;
  EXPECT_TRUE(has(line("A dialog"), framePart(desktop().frameExtents(dialog.id())))) << text;
  EXPECT_TRUE(has(line("A dialog"), "least 120x80")) << text;
  EXPECT_TRUE(has(line("Its own"), "draws its own, shadow 26 26 23 29")) << text;
}

TEST_F(Doctor, TellsWhichShortcutsAnotherProgramHolds) {
  endTilwin();
  {
    const GrabbedKey held(session().server().display(), "Control+Alt+u");
    restartTilwin();
    const auto text = report();
    EXPECT_TRUE(has(text, " or another program keeps Ctrl+Alt+U: "));
    EXPECT_TRUE(has(text, "\"tilwin snap topLeft\""));
    EXPECT_TRUE(has(text, "\n  28 of 29 work\n"));
  }
  restartTilwin();
  EXPECT_TRUE(has(report(), "\n  29 of 29 work\n"));
}

TEST_F(Doctor, TellsHowLongAPressTook) {
  restartTilwin();
  const TestWindow window = session().window();
  focusAtStart(window.id());
  press(leftHalfKeys);
  ASSERT_TRUE(stands(window.id(), leftHalf));
  const auto text = report();
  EXPECT_TRUE(has(text, "\n  leftHalf  asked after "));
  EXPECT_TRUE(has(text, " answered after "));
  EXPECT_TRUE(has(text, "\nWindow manager\n  Announces itself              yes\n"));
  EXPECT_EQ(text.find("Refused a window              yes"), std::string::npos) << text;
}

TEST_F(Doctor, TellsWhichFilesAreOpenToOthers) {
  restartTilwinWith(R"({"gap": 4})");
  const auto file = settingsFolder() / "Tilwin.conf";
  std::filesystem::permissions(file, std::filesystem::perms(0666));
  EXPECT_TRUE(has(report(), "Tilwin.conf (mode 0666): chmod 600 "));
  std::filesystem::permissions(file, std::filesystem::perms(0600));
  EXPECT_EQ(report().find("chmod"), std::string::npos);
  restartTilwinWith("{}");
}

TEST_F(Doctor, SaysFirstThatNothingRuns) {
  endTilwin();
  const auto text = report();
  EXPECT_TRUE(text.starts_with("Tilwin is not running, so no shortcut works: start it with \"tilwin\".\n"))
      << text;
  EXPECT_TRUE(has(text, "\n  not known: Tilwin is not running\n"));
  EXPECT_TRUE(has(text, "1920x1080+0+0"));
  restartTilwin();
}

TEST_F(DoctorOfOpenbox, TellsThatItWasSeenToObey) {
  Session session({.manager = Manager::openbox});
  const TestWindow window = session.window();
  const TilwinProcess tilwin(session, arguments().tilwin);
  EXPECT_TRUE(has(doctorIn(session), "\n  Obeys _NET_MOVERESIZE_WINDOW  not tried yet\n"));
  ASSERT_TRUE(session.desktop().activate(window.id()));
  session.input().press(leftHalfKeys);
  ASSERT_TRUE(session.desktop().waitForFrame(window.id(), leftHalf));
  // It is judged a while after the request.
  const auto isSeen = [&] {
    return doctorIn(session).find("\n  Obeys _NET_MOVERESIZE_WINDOW  yes\n") != std::string::npos;
  };
  EXPECT_TRUE(session.desktop().waitUntil(isSeen)) << doctorIn(session);
}

TEST_F(DoctorOfOpenbox, NamesTheKeysThatOpenboxKeepsAsItIsShipped) {
  Session session({.manager = Manager::openbox});
  session.manager().stop();
  ASSERT_TRUE(std::filesystem::remove(session.home().config() / "openbox" / "rc.xml"));
  session.manager().start();
  const TilwinProcess tilwin(session, arguments().tilwin);
  const auto text = doctorIn(session);
  EXPECT_TRUE(
      has(text,
          "openbox keeps Ctrl+Alt+← for its desktops: remove it in rc.xml, or bind it to \"tilwin snap "
          "leftHalf\".\n"));
  EXPECT_TRUE(has(text, "\n  25 of 29 work\n"));
}

TEST_F(DoctorOfOpenbox, TellsThatNoWindowManagerRuns) {
  Session session({.manager = Manager::openbox});
  session.manager().stop();
  const auto text = doctorIn(session);
  EXPECT_TRUE(
      text.starts_with("Tilwin is not running, or waits for a window manager, so no shortcut works.\n"
                       "No window manager runs that announces itself as EWMH requires"))
      << text;
  EXPECT_TRUE(has(text, "\n  Announces itself  no\n"));
}

class DoctorOfPanels : public testing::TestWithParam<Panel> {};

TEST_P(DoctorOfPanels, MissesOneUntilItShowsTheIcon) {
  Session session({.manager = Manager::openbox});
  const TilwinProcess tilwin(session, arguments().tilwin);
  const auto isMissed = [&] {
    return doctorIn(session).find("No panel shows Tilwin's icon") != std::string::npos;
  };
  ASSERT_TRUE(session.desktop().waitUntil(isMissed)) << doctorIn(session);
  const ChildProcess panel = startPanel(session, GetParam());
  EXPECT_TRUE(session.desktop().waitUntil([&] { return !isMissed(); }, startTimeout)) << doctorIn(session);
}

INSTANTIATE_TEST_SUITE_P(EachKind, DoctorOfPanels, testing::Values(Panel::tint2, Panel::xfce));

/// metacity as it comes, whose tiles end in no other way than by a drag.
TEST(DoctorOfTiles, NamesAManagerThatWasSeenToTileItself) {
  Session session({.manager = Manager::metacity, .setup = {.nativeTileKeys = true}});
  const TestWindow window = session.window();
  const TilwinProcess tilwin(session, arguments().tilwin);
  ASSERT_TRUE(session.desktop().activate(window.id()));
  session.input().press(nativeTileLeft);
  ASSERT_TRUE(session.desktop().waitForFrame(window.id(), leftHalf)) << "the manager has not tiled it";
  EXPECT_TRUE(has(doctorIn(session), "\n  Tiles itself                  not seen"));
  session.input().press("Control+Alt+k");
  ASSERT_TRUE(session.desktop().waitForFrame(window.id(), {960, 540, 960, 540}));
  const auto isSeen = [&] {
    return doctorIn(session).find("metacity tiles windows at the edges itself") != std::string::npos;
  };
  EXPECT_TRUE(session.desktop().waitUntil(isSeen)) << doctorIn(session);
}

}  // namespace tilwin::desktop
