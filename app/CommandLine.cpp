#include "app/CommandLine.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "app/login/LoginItem.h"
#include "core/drag/ShadowLogFile.h"
#include "core/drag/ShadowRecorder.h"
#include "core/drag/ShadowReport.h"
#include "core/layouts/DisplaySignature.h"

namespace tilwin {
namespace {

void enableLoginItem(const CommandLine::Ports& ports, std::ostream& output) {
  LoginItem item(ports.login, ports.log);
  if (item.set(true)) {
    output << "login item enabled\n";
  } else {
    output << "login item not enabled: " << LoginItem::whyNotEnabled(item.status(), ports.words.wording())
           << '\n';
  }
}

void disableLoginItem(const CommandLine::Ports& ports, std::ostream& output) {
  LoginItem item(ports.login, ports.log);
  output << (item.set(false) ? "login item removed\n" : "login item still enabled\n");
}

void printStatus(const CommandLine::DesktopPorts& ports, std::ostream& output) {
  const auto displays = ports.windows.displays();
  output << "accessibilityTrusted=" << (ports.trust.isTrusted() ? "true" : "false")
         << " displays=" << displays.size() << " signature=" << DisplaySignature(displays).key << '\n';
}

void printShadowReport(const CommandLine::Ports& ports, std::ostream& output) {
  const auto log = ShadowLogFile::defaultURL(ports.bundle.applicationSupport());
  if (!log) return;
  const ShadowSummary summary = ShadowReport::summarize(ShadowLogFile::read(*log));
  const std::string report = ShadowReport::text(summary, ShadowRecorder::systemClock()());
  // The report is fixed texts and figures; nothing in it has a name that somebody chose.
  output << ports.words.wording().text(report) << '\n';
}

struct Mode {
  std::string_view argument;
  void (*act)(const CommandLine::Ports& ports, std::ostream& output);
  void (*actOnDesktop)(const CommandLine::DesktopPorts& ports, std::ostream& output);
};

constexpr std::array modes = std::to_array<Mode>({
    {"--enable-login-item", enableLoginItem, nullptr},
    {"--disable-login-item", disableLoginItem, nullptr},
    {"--status", nullptr, printStatus},
    {"--shadow-report", printShadowReport, nullptr},
});

/// The first of the modes that is among the arguments; null if none is.
const Mode* modeNamed(std::span<const char* const> arguments) {
  const auto* const found = std::find_if(modes.begin(), modes.end(), [&](const Mode& mode) {
    return std::find(arguments.begin(), arguments.end(), mode.argument) != arguments.end();
  });
  return found == modes.end() ? nullptr : found;
}

template <typename Act, typename Ports>
std::optional<int> runMode(Act act, const Ports& ports, std::ostream& output) {
  if (act == nullptr) return std::nullopt;
  act(ports, output);
  output << std::flush;
  return 0;
}

}  // namespace

std::optional<int> CommandLine::run(std::span<const char* const> arguments, const Ports& ports,
                                    std::ostream& output) {
  const Mode* const mode = modeNamed(arguments);
  return mode == nullptr ? std::nullopt : runMode(mode->act, ports, output);
}

std::optional<int> CommandLine::runOnDesktop(std::span<const char* const> arguments,
                                             const DesktopPorts& ports, std::ostream& output) {
  const Mode* const mode = modeNamed(arguments);
  return mode == nullptr ? std::nullopt : runMode(mode->actOnDesktop, ports, output);
}

}  // namespace tilwin
