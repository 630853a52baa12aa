#include "tests/desktop/tour/OwnWindow.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <sstream>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

std::string keyFor(char character) {
  if (character == ' ') return "space";
  const std::string key(1, character);
  return std::isupper(static_cast<unsigned char>(character)) != 0 ? "Shift+" + key : key;
}

}  // namespace

WindowId waitForTitle(Session& session, const std::string& title) {
  auto& desktop = session.desktop();
  WindowId window = 0;
  const bool came = desktop.waitUntil([&] {
    window = desktop.activeWindow();
    return window != 0 && desktop.title(window) == title && desktop.viewable(window);
  });
  if (!came) {
    throw HarnessError("no window \"" + title + "\" has the focus, but \"" +
                       desktop.title(desktop.activeWindow()) + "\"");
  }
  desktop.settle();
  return window;
}

void waitForClosing(Session& session, WindowId window) {
  auto& desktop = session.desktop();
  const bool closed = desktop.waitUntil([&] {
    const auto clients = desktop.clients();
    return std::ranges::find(clients, window) == clients.end();
  });
  if (!closed) throw HarnessError("a window stays open: " + desktop.title(window));
}

void waitForText(Session& session, const std::filesystem::path& file, const std::string& text,
                 Milliseconds timeout) {
  const auto isThere = [&] {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream content;
    content << stream.rdbuf();
    return content.str().find(text) != std::string::npos;
  };
  if (!session.desktop().waitUntil(isThere, timeout)) {
    throw HarnessError(file.filename().string() + " does not get \"" + text + "\"");
  }
}

void type(Input& input, const std::string& text) {
  for (const char character : text) input.press(keyFor(character));
}

}  // namespace tilwin::desktop
