#include "tests/desktop/tour/SettingsAct.h"

#include <array>

#include "tests/desktop/harness/HarnessError.h"
#include "tests/desktop/tour/OwnWindow.h"

namespace tilwin::desktop {

namespace {

struct Section {
  const char* name;
  const char* line;
};

constexpr std::array sections = std::to_array<Section>({
    {"spacing", "spacing, with its preview"},
    {"behavior", "behavior"},
    {"shortcuts", "the shortcuts"},
    {"custom-areas", "custom areas, with the one made from a window"},
    {"drag-statistics", "drag statistics"},
});

/// In the window: the first entry of the list of sections.
constexpr PixelPoint firstSection{90, 38};

class SettingsAct {
public:
  SettingsAct(Session& session, const TourArguments& arguments, Album& album, std::string look)
      : session_(session), album_(album), look_(std::move(look)) {
    auto second = session.start("tilwin-second-" + look_, {arguments.tilwin.string()});
    if (second.waitFor(answerTimeout) != ExitStatus{.code = 0, .signal = std::nullopt}) {
      throw HarnessError("a second start does not end well");
    }
    window_ = waitForTitle(session, "Tilwin Settings");
  }

  void play() {
    const Rect area = session_.desktop().clientArea(window_).value_or(Rect());
    session_.input().click(
        {static_cast<int>(area.x) + firstSection.x, static_cast<int>(area.y) + firstSection.y});
    // What is under the pointer is highlighted.
    session_.input().movePointer({static_cast<int>(area.maxX()) - 20, static_cast<int>(area.maxY()) - 20});
    if (look_ == "light") setSpacing();
    for (const Section& section : sections) {
      if (&section != sections.data()) session_.input().press("Down");
      keep(section.name, section.line);
    }
    session_.input().press("Escape");
    waitForClosing(session_, window_);
  }

private:
  /// By the keyboard alone, and back to the list of sections.
  void setSpacing() {
    auto& hand = session_.input();
    hand.press("Tab");
    for (int point = 0; point < 12; ++point) hand.press("Right");
    hand.press("Tab");
    for (int point = 0; point < 8; ++point) hand.press("Right");
    hand.press("Shift+Tab");
    hand.press("Shift+Tab");
    const auto file = session_.home().config() / "Tilwin" / "Tilwin.conf";
    for (const char* setting : {"outer", "gap"}) waitForText(session_, file, setting);
  }

  void keep(const std::string& section, const std::string& line) {
    const Rect frame = session_.desktop().frame(window_).value_or(Rect());
    album_.keep(session_, "settings-" + section + "-" + look_, "settings, " + look_ + ": " + line, frame);
  }

  Session& session_;
  Album& album_;
  std::string look_;
  WindowId window_ = 0;
};

}  // namespace

void playSettings(Session& session, const TourArguments& arguments, Album& album, const std::string& look) {
  SettingsAct(session, arguments, album, look).play();
}

}  // namespace tilwin::desktop
