#include "platform/simulated/SimulatedDesktop.h"

#include <stdexcept>
#include <utility>
#include <variant>
#include <vector>

#include "platform/simulated/DisplayText.h"
#include "platform/simulated/SimulatedWindowProvider.h"

namespace tilwin {
namespace {

std::vector<DisplayInfo> displaysFrom(std::string_view text) {
  auto parsed = parseDisplays(text);
  if (const auto* error = std::get_if<DisplayTextError>(&parsed)) throw std::invalid_argument(error->message);
  return std::get<std::vector<DisplayInfo>>(std::move(parsed));
}

}  // namespace

SimulatedDesktop::SimulatedDesktop(std::string_view displays, std::optional<std::filesystem::path> files)
    : windows(displaysFrom(displays)),
      bundle(std::move(files)),
      provider_(std::make_shared<SimulatedWindowProvider>(windows)) {
  windows.onDisplaysChanged = [this] { screens.tell(); };
}

void SimulatedDesktop::setDisplays(std::string_view displays) { windows.setDisplays(displaysFrom(displays)); }

}  // namespace tilwin
