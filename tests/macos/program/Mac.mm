#include "tests/macos/program/Mac.h"

#import <AppKit/AppKit.h>

#include "platform/ports/ScreenSpace.h"
#include "tests/macos/desktop/MacDesktop.h"
#include "tests/macos/gnustep/ProgramsElsewhere.h"
#include "tests/macos/gnustep/UserFolder.h"

namespace tilwin::macos {

Mac::Mac() {
  setUserFolder(macDesktop().home().path());
  for (const auto& [name, window] : {std::pair("Safari", &safari), std::pair("Notes", &notes)}) {
    const std::string identifier = std::string("com.apple.") + name;
    const auto process = desktop.launch({.bundleIdentifier = identifier, .localizedName = name});
    *window = desktop.open(process, {.title = name, .frame = {200, 200, 640, 480}});
    programsElsewhere().running.push_back(
        {.processID = process, .bundleIdentifier = identifier, .localizedName = name});
  }
  programsElsewhere().frontmost = programsElsewhere().running.front();
}

Mac::~Mac() { programsElsewhere() = {}; }

void Mac::press(const HotKeySpec& spec) {
  keyboard.press(spec);
  keyboard.runEventLoop();
}

Rect Mac::visibleFrame() {
  NSScreen* const screen = [[NSScreen screens] firstObject];
  const NSRect free = [screen visibleFrame];
  return fromScreen(ScreenRect{free.origin.x, free.origin.y, free.size.width, free.size.height},
                    [screen frame].size.height);
}

std::string Mac::settings() const {
  const auto stored = preferences.stored(c::StoredPreferences::ownDomain, "tilwin.settings.v1");
  const auto* const bytes = stored ? std::get_if<c::StoredBytes>(&*stored) : nullptr;
  return bytes == nullptr ? "" : bytes->bytes;
}

}  // namespace tilwin::macos
