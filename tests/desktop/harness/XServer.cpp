#include "tests/desktop/harness/XServer.h"

#include <algorithm>

#include "tests/desktop/harness/HarnessError.h"
#include "tests/desktop/harness/ServerStart.h"

namespace tilwin::desktop {

namespace {

std::string sizeText(PixelSize size) {
  return std::to_string(size.width) + "x" + std::to_string(size.height);
}

bool contains(const std::vector<std::string>& texts, const std::string& text) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

bool lights(const std::vector<PluggedDisplay>& displays, const std::string& output) {
  return std::any_of(displays.begin(), displays.end(), [&](const auto& d) { return d.output == output; });
}

std::vector<PluggedDisplay> without(std::vector<PluggedDisplay> displays, const std::string& output) {
  std::erase_if(displays, [&](const auto& display) { return display.output == output; });
  return displays;
}

}  // namespace

XServer::XServer(const PrivateHome& home, ChildProcess process, std::string display, PixelSize size)
    : home_(home), process_(std::move(process)), display_(std::move(display)), size_(size) {}

std::unique_ptr<XServer> XServer::virtualScreen(const PrivateHome& home, PixelSize size,
                                                const std::vector<std::string>& extraArguments) {
  std::vector<std::string> argv{"Xvfb", "-screen", "0", sizeText(size) + "x24"};
  argv.insert(argv.end(), extraArguments.begin(), extraArguments.end());
  auto started = startServer(home, "Xvfb", argv);
  return std::unique_ptr<XServer>(
      new XServer(home, std::move(started.process), std::move(started.display), size));
}

std::unique_ptr<XServer> XServer::dummy(const PrivateHome& home, const std::vector<PluggedDisplay>& displays,
                                        PixelSize largest, std::string& whyNot) {
  try {
    home.write("xorg.conf", dummyConfiguration(displays.front().mode, largest));
    auto started = startServer(home, "Xorg",
                               {"Xorg", "-config", home.path() / "xorg.conf", "-logfile",
                                home.log("Xorg-server"), "-novtswitch", "-sharevts"});
    std::unique_ptr<XServer> server(
        new XServer(home, std::move(started.process), std::move(started.display), largest));
    server->displays_ = {{.output = "DUMMY0"}};
    server->arrange(displays);
    return server;
  } catch (const HarnessError& error) {
    whyNot = error.what();
    return nullptr;
  }
}

Environment XServer::environment() const {
  Environment environment;
  environment.set("DISPLAY", display_);
  return environment;
}

void XServer::makeMode(const PluggedDisplay& display) {
  const std::string mode = "plugged-" + sizeText(display.mode);
  if (!contains(modes_, mode)) {
    std::vector<std::string> argv{"xrandr", "--newmode", mode};
    for (const auto& number : modeTimings(display.mode)) argv.push_back(number);
    run(argv);
    modes_.push_back(mode);
  }
  if (contains(addedModes_, display.output + mode)) return;
  run({"xrandr", "--addmode", display.output, mode});
  addedModes_.push_back(display.output + mode);
}

void XServer::arrange(const std::vector<PluggedDisplay>& displays) {
  for (const auto& display : displays) makeMode(display);
  std::vector<std::string> argv{"xrandr"};
  for (const auto& display : displays) {
    const std::string place = std::to_string(display.position.x) + "x" + std::to_string(display.position.y);
    argv.insert(argv.end(), {"--output", display.output, "--mode", "plugged-" + sizeText(display.mode),
                             "--pos", place, "--rotate", "normal"});
    if (display.primary) argv.emplace_back("--primary");
  }
  for (const auto& display : displays_) {
    if (!lights(displays, display.output)) argv.insert(argv.end(), {"--output", display.output, "--off"});
  }
  run(argv);
  // The driver calls an output connected while it is lit, and the server asks it only when a client has the
  // outputs probed. Toolkits leave monitors out whose output is not connected.
  run({"xrandr", "--query"});
  displays_ = displays;
}

void XServer::plug(const PluggedDisplay& display) {
  auto displays = without(displays_, display.output);
  displays.push_back(display);
  arrange(displays);
}

void XServer::unplug(const std::string& output) { arrange(without(displays_, output)); }

void XServer::splitIntoMonitors(const std::vector<int>& widths) {
  for (; splits_ > 0; --splits_) run({"xrandr", "--delmonitor", "split" + std::to_string(splits_)});
  int x = 0;
  for (const int width : widths) {
    const std::string area = std::to_string(width) + "/" + std::to_string(width / 4) + "x" +
                             std::to_string(size_.height) + "/" + std::to_string(size_.height / 4) + "+" +
                             std::to_string(x) + "+0";
    const std::string name = "split" + std::to_string(++splits_);
    run({"xrandr", "--setmonitor", name, area, splits_ == 1 ? "screen" : "none"});
    x += width;
  }
}

void XServer::setKeyboardLayout(const std::string& layouts) { run({"setxkbmap", "-layout", layouts}); }

void XServer::run(const std::vector<std::string>& argv) {
  const Launch launch{.argv = argv,
                      .environment = home_.environment().with(environment()),
                      .outputFile = home_.log(argv.front())};
  ChildProcess command = ChildProcess::start(launch);
  const auto status = command.waitFor(startTimeout);
  if (status == ExitStatus{0, std::nullopt}) return;
  std::string text;
  for (const auto& word : argv) text += word + " ";
  throw HarnessError(text + "failed:\n" + lastLines(command.output(), 6));
}

}  // namespace tilwin::desktop
