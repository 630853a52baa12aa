#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <fstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/AppDelegate.h"
#include "core/geometry/GeometryCoding.h"
#include "core/settings/SettingsCoding.h"
#include "platform/simulated/SimulatedDesktop.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/drag/Reference.h"

namespace tilwin {
namespace {

Rect rectOf(const JsonReader& numbers) {
  return {numbers.element(0).number(), numbers.element(1).number(), numbers.element(2).number(),
          numbers.element(3).number()};
}

Point pointOf(const JsonReader& event) { return {event.member("x").number(), event.member("y").number()}; }

SimulatedWindows::Handle windowOf(const JsonReader& event) {
  return event.member("window").wholeNumber(1, 1'000'000);
}

std::string geometryOf(const JsonReader& display) {
  const Rect frame = rectOf(display.member("frame"));
  const auto whole = [](double number) { return std::to_string(std::lround(number)); };
  const auto place = [&](double number) { return (number < 0 ? "" : "+") + whole(number); };
  return whole(frame.width) + "x" + whole(frame.height) + place(frame.x) + place(frame.y);
}

std::string geometriesOf(const JsonReader& displays) {
  std::string text;
  for (const JsonReader& display : displays.elements())
    text += (text.empty() ? "" : ",") + geometryOf(display);
  return text;
}

/// The whole program on a desktop on which a script is played.
struct HalfHour {
  explicit HalfHour(const JsonReader& displays) : desktop(geometriesOf(displays), folder.path()) {
    std::uint32_t id = 0;
    for (const JsonReader& display : displays.elements()) {
      const JsonReader struts = display.member("struts");
      desktop.windows.reserve(++id, {.left = struts.element(0).number(),
                                     .right = struts.element(1).number(),
                                     .top = struts.element(2).number(),
                                     .bottom = struts.element(3).number()});
    }
    delegate.start();
  }

  void play(const JsonReader& event);

  std::vector<std::string> logged() const {
    std::ifstream file(folder.path() / "Tilwin" / "shadow.jsonl");
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
  }

  TemporaryFolder folder;
  SimulatedDesktop desktop;
  Platform platform = desktop.platform();
  AppDelegate delegate{platform};
  std::chrono::milliseconds played{0};
};

void pressMouse(HalfHour& half, const JsonReader& event) {
  if (const auto standing = event.find("standing")) {
    const auto* const window = half.desktop.windows.find(windowOf(event));
    ASSERT_NE(window, nullptr);
    ASSERT_EQ(window->frame, rectOf(*standing));
  }
  half.desktop.mouse.press(pointOf(event));
}

void openWindow(HalfHour& half, const JsonReader& event) {
  const auto handle = half.desktop.windows.open(
      {.bundleID = event.member("app").text(), .frame = rectOf(event.member("frame"))});
  ASSERT_EQ(handle, windowOf(event));
}

void useShortcut(HalfHour& half, const JsonReader& event) {
  const auto action = SnapActions::fromRawValue(event.member("action").textView());
  ASSERT_TRUE(action);
  const auto keys = TilwinSettings().shortcut(*action);
  ASSERT_TRUE(keys);
  half.desktop.keyboard.press(*keys);
}

struct ScriptedEvent {
  std::string_view kind;
  void (*act)(HalfHour& half, const JsonReader& event);
};

constexpr std::array scriptedEvents = std::to_array<ScriptedEvent>({
    {"drag", [](HalfHour& half, const JsonReader& event) { half.desktop.mouse.drag(pointOf(event)); }},
    {"frame",
     [](HalfHour& half, const JsonReader& event) {
       half.desktop.windows.moveByHand(windowOf(event), rectOf(event.member("frame")));
     }},
    {"move", [](HalfHour& half, const JsonReader& event) { half.desktop.mouse.move(pointOf(event)); }},
    {"press", pressMouse},
    {"release", [](HalfHour& half, const JsonReader&) { half.desktop.mouse.release(); }},
    {"cancel", [](HalfHour& half, const JsonReader&) { half.desktop.mouse.cancel(); }},
    {"open", openWindow},
    {"close", [](HalfHour& half, const JsonReader& event) { half.desktop.windows.close(windowOf(event)); }},
    {"focus", [](HalfHour& half, const JsonReader& event) { half.desktop.windows.focus(windowOf(event)); }},
    {"shortcut", useShortcut},
    {"change",
     [](HalfHour& half, const JsonReader& event) {
       half.delegate.store().settings.set(JsonCoding<TilwinSettings>::decode(event.member("settings")));
     }},
    {"quit", [](HalfHour& half, const JsonReader&) { half.desktop.mainQueue().stop(0); }},
});

void HalfHour::play(const JsonReader& event) {
  const std::chrono::milliseconds moment(event.member("t").wholeNumber(0, 1'000'000'000));
  desktop.time.advance(moment - std::exchange(played, moment));
  const std::string_view kind = event.member("kind").textView();
  const auto* const known = std::find_if(scriptedEvents.begin(), scriptedEvents.end(),
                                         [&](const ScriptedEvent& each) { return each.kind == kind; });
  ASSERT_NE(known, scriptedEvents.end()) << kind;
  known->act(*this, event);
  desktop.time.runDue();
}

struct HalfHourOfDrags : testing::TestWithParam<int> {};

TEST_P(HalfHourOfDrags, LeavesInTheLogWhatTheReferenceExpectsWordForWord) {
  compareWithReference("halfhours", GetParam(), 1, [](Columns& columns) {
    const JsonReader script = JsonReader::parse(columns.word());
    HalfHour half(script.member("displays"));
    for (const JsonReader& event : script.member("events").elements()) {
      half.play(event);
      ASSERT_FALSE(testing::Test::HasFailure()) << "at " << half.played.count() << " ms";
    }
    const std::vector<std::string> ours = half.logged();
    EXPECT_EQ(ours.size(), static_cast<std::size_t>(columns.whole()));
    for (const std::string& line : ours) ASSERT_EQ(line, columns.word());
  });
}

INSTANTIATE_TEST_SUITE_P(Seeds, HalfHourOfDrags, testing::Range(1, 9));

}  // namespace
}  // namespace tilwin
