#include "tests/desktop/afternoon/Afternoon.h"

#include <algorithm>
#include <cctype>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

constexpr const char* settingsTitle = "Tilwin Settings";
constexpr const char* dialogTitle = "Tilwin";

/// The keys that type this letter on an American keyboard.
std::string keysFor(char letter) {
  if (letter == ' ') return "space";
  if (std::isupper(static_cast<unsigned char>(letter)) == 0) return {letter};
  return std::string("Shift+") + static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
}

}  // namespace

Afternoon::Afternoon(const SessionOptions& options, Panel panel)
    : session_(options), panel_(startPanel(session_, panel)), icon_(session_), reader_(session_) {}

void Afternoon::waitFor(const Predicate& condition, const std::string& what, Milliseconds timeout) {
  if (!desktop().waitUntil([&] { return !tilwin_.running() || condition(); }, timeout) ||
      !tilwin_.running()) {
    throw HarnessError("waited in vain until " + what + "\n" + log());
  }
}

void Afternoon::launchTilwin() {
  tilwin_ = session_.start("tilwin-" + std::to_string(++starts_), {arguments().tilwin.string()});
}

void Afternoon::startTilwin() {
  launchTilwin();
  waitFor([this] { return log().find("shortcuts work") != std::string::npos; }, "shortcuts work",
          startTimeout);
  waitFor([this] { return icon_.area().has_value(); }, "the icon is there", startTimeout);
}

std::optional<ExitStatus> Afternoon::tilwinEnds() { return tilwin_.waitFor(answerTimeout); }

std::optional<WindowId> Afternoon::windowTitled(const std::string& title) {
  const auto windows = desktop().clients();
  const auto found = std::ranges::find_if(windows, [&](WindowId window) {
    return desktop().process(window) == tilwin_.pid() && desktop().title(window) == title;
  });
  return found == windows.end() ? std::nullopt : std::optional(*found);
}

void Afternoon::answer(const MenuPath& entry, const std::string& text) {
  icon_.choose(entry);
  waitFor([this] { return windowTitled(dialogTitle) == desktop().activeWindow(); },
          "a prompt asks for " + text);
  type(text);
  input().press("Return");
  waitFor([this] { return !windowTitled(dialogTitle); }, "the prompt is answered with " + text);
}

void Afternoon::type(const std::string& text) {
  for (const char letter : text) input().press(keysFor(letter));
}

void Afternoon::openSettings() {
  auto second = session_.start("second", {arguments().tilwin.string()});
  if (second.waitFor(startTimeout) != endedWell) throw HarnessError("a second start does not end well");
  waitFor([this] { return windowTitled(settingsTitle) == desktop().activeWindow(); },
          "the settings are open");
  // Some window managers say so before it has the focus, and keys that are pressed then reach nobody.
  desktop().settle();
  waitFor([this] { return windowTitled(settingsTitle) == desktop().activeWindow(); },
          "the settings have the focus");
}

void Afternoon::openSettings(const std::string& section) {
  openSettings();
  click("list item", section);
  static_cast<void>(reader_.find("list item", section, {"SELECTED"}));
}

void Afternoon::closeSettings() {
  input().press("Control+w");
  waitFor([this] { return !windowTitled(settingsTitle); }, "the settings are closed");
}

void Afternoon::click(const std::string& role, const std::string& name) {
  input().click(reader_.find(role, name).centre());
}

Rect Afternoon::room() { return desktop().visibleFrame(desktop().monitors().at(0)); }

void Afternoon::placeByHand(WindowId window, const Rect& frame) {
  desktop().settle();
  desktop().place(window, frame);
  desktop().settle();
}

testing::AssertionResult Afternoon::stands(WindowId window, const Rect& frame) {
  const auto step = desktop().sizeIncrement(window);
  if (desktop().waitForFrame(window, frame, std::max(step.width, step.height)))
    return testing::AssertionSuccess();
  return testing::AssertionFailure() << "expected " << text(frame) << ", saw "
                                     << text(desktop().frame(window).value_or(Rect())) << "\n"
                                     << log();
}

}  // namespace tilwin::desktop
