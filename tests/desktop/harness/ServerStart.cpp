#include "tests/desktop/harness/ServerStart.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>

#include "tests/desktop/harness/ReadyLine.h"

namespace tilwin::desktop {

namespace {

std::string joined(const std::vector<std::string>& words) {
  std::string text;
  for (const auto& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

constexpr const char* dummyTemplate = R"(Section "ServerFlags"
  Option "AutoAddDevices" "false"
  Option "AutoEnableDevices" "false"
  Option "AutoAddGPU" "false"
  Option "DontVTSwitch" "true"
  Option "AllowMouseOpenFail" "true"
  Option "BlankTime" "0"
EndSection
Section "Device"
  Identifier "dummy"
  Driver "dummy"
  VideoRam 256000
EndSection
Section "Monitor"
  Identifier "monitor"
  HorizSync 5.0-1000.0
  VertRefresh 1.0-1000.0
  Modeline "first" @timings@
EndSection
Section "Screen"
  Identifier "screen"
  Device "dummy"
  Monitor "monitor"
  DefaultDepth 24
  SubSection "Display"
    Depth 24
    Modes "first"
    Virtual @virtual@
  EndSubSection
EndSection
)";

void replace(std::string& text, const std::string& what, const std::string& with) {
  text.replace(text.find(what), what.size(), with);
}

}  // namespace

StartedServer startServer(const PrivateHome& home, const std::string& name, std::vector<std::string> argv) {
  argv.insert(argv.end(), {"-displayfd", std::to_string(readyDescriptor), "-noreset", "-nolisten", "tcp"});
  Launch launch{.argv = argv, .environment = home.environment(), .outputFile = home.log(name)};
  // On SIGTERM it takes its lock and socket away with it.
  launch.deathSignal = SIGTERM;
  auto ready = startReady(launch);
  return {std::move(ready.process), ":" + ready.line};
}

std::vector<std::string> modeTimings(PixelSize size) {
  constexpr double highestClock = 290.0;
  const int total = size.width + 160;
  const int lines = size.height + 25;
  const double clock = std::min(highestClock, total * static_cast<double>(lines) * 60.0 / 1e6);
  std::array<char, 32> clockText{};
  std::snprintf(clockText.data(), clockText.size(), "%.2f", clock);
  std::vector<std::string> timings{clockText.data()};
  for (const int value : {size.width, size.width + 48, size.width + 80, total, size.height, size.height + 3,
                          size.height + 8, lines}) {
    timings.push_back(std::to_string(value));
  }
  return timings;
}

std::string dummyConfiguration(PixelSize first, PixelSize largest) {
  std::string text = dummyTemplate;
  replace(text, "@timings@", joined(modeTimings(first)));
  replace(text, "@virtual@", std::to_string(largest.width) + " " + std::to_string(largest.height));
  return text;
}

}  // namespace tilwin::desktop
