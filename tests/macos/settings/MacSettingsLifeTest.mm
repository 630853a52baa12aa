// What becomes of the window when it is closed, and how the keyboard goes through it.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/macos/support/Held.h"
#include "tests/contract/SampleForm.h"
#include "tests/macos/desktop/EventLoop.h"
#include "tests/macos/desktop/Living.h"
#include "tests/macos/gnustep/EventsElsewhere.h"
#include "tests/macos/settings/MacSettingsDriver.h"

namespace tilwin::macos {

using desktop::Milliseconds;

TEST(MacSettingsLife, AClosedWindowIsReleasedWithAllThatWasInIt) {
  const Living parts({"TWFormWindow", "TWFormerFrame", "TWSidebar", "TWSectionButton", "TWSectionPage",
                      "TWGroupView", "TWCardView", "TWRowView", "TWLabel", "TWToggleView", "TWSliderView",
                      "TWFieldView", "TWKeyButton", "TWPushButton", "TWRecorderButton", "TWPictureView",
                      "TWScrolledView"});
  const std::size_t monitors = eventMonitors();
  {
    MacSettingsDriver driver;
    {
      const AutoreleasePool pool;
      for (const char* section : {"spacing", "behavior", "shortcuts", "areas", "statistics"}) {
        driver.window().show(contract::sampleForm(section));
        ASSERT_TRUE(driver.settle([&] { return driver.isInFront(); }));
      }
      driver.focus("record");
      EXPECT_GT(parts.count(), 10);
      EXPECT_GT(eventMonitors(), monitors);
      driver.window().close();
    }
    EXPECT_EQ(eventMonitors(), monitors);
    EXPECT_TRUE(runEventLoopUntil([&] { return parts.count() == 0; }, Milliseconds{2000}))
        << parts.count() << " objects are left";
  }
}

TEST(MacSettingsLife, TheTabKeyGoesThroughTheControlsAsTheyAreRead) {
  MacSettingsDriver driver;
  driver.window().show(contract::sampleForm("areas"));
  ASSERT_TRUE(driver.settle([&] { return driver.isInFront(); }));
  const std::vector<std::string> expected{"area1.name",   "area1.Left", "area1.Top",    "area1.Width",
                                          "area1.Height", "area1.keys", "area1.delete", "area2.name"};
  std::vector<std::string> visited;
  driver.focus(expected.front());
  for (std::size_t step = 0; step < expected.size(); ++step) {
    visited.push_back(driver.focused());
    driver.pressKeys({contract::keys::tab, 0});
  }
  EXPECT_EQ(visited, expected);
}

TEST(MacSettingsLife, TheArrowKeysChooseSectionsInTheList) {
  MacSettingsDriver driver;
  std::vector<FormEvent> events;
  driver.window().onEvent([&](const FormEvent& event) { events.push_back(event); });
  driver.window().show(contract::sampleForm("behavior"));
  ASSERT_TRUE(driver.settle([&] { return driver.isInFront(); }));
  driver.pressKeys({contract::keys::down, 0});
  driver.pressKeys({contract::keys::up, 0});
  EXPECT_EQ(events,
            (std::vector<FormEvent>{form::SectionChosen{"shortcuts"}, form::SectionChosen{"spacing"}}));
  driver.window().onEvent([](const FormEvent&) {});
}

TEST(MacSettingsLife, CommandFAndTheSlashGoToTheSearchFieldAndEscapeEmptiesItFirst) {
  MacSettingsDriver driver;
  auto form = contract::sampleForm("shortcuts");
  driver.window().show(form);
  ASSERT_TRUE(driver.settle([&] { return driver.isInFront(); }));
  driver.pressKeys({contract::keys::slash, 0});
  EXPECT_EQ(driver.focused(), "search");
  driver.type("up");
  EXPECT_EQ(driver.text("search"), "up");
  driver.pressKeys({contract::keys::escape, 0});
  EXPECT_EQ(driver.text("search"), "");
  EXPECT_TRUE(driver.window().isOpen());
  driver.pressKeys({contract::keys::tab, 0});
  EXPECT_EQ(driver.focused(), "leftHalf.keys");
  driver.pressKeys({contract::keys::f, HotKeySpec::cmd});
  EXPECT_EQ(driver.focused(), "search");
  driver.pressKeys({contract::keys::escape, 0});
  EXPECT_FALSE(driver.window().isOpen());
}

}  // namespace tilwin::macos
