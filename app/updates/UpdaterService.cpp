#include "app/updates/UpdaterService.h"

#include <string>
#include <variant>

namespace tilwin {
namespace {

/// The text under the key; empty if there is none.
std::string textIn(const Bundle::Information& information, const char* key) {
  const auto found = information.find(key);
  if (found == information.end()) return {};
  const auto* text = std::get_if<std::string>(&found->second);
  return text == nullptr ? std::string() : *text;
}

}  // namespace

UpdaterService::UpdaterService(Bundle& bundle, UpdateFramework& framework, SystemLog& log) {
  const auto information = bundle.information();
  const std::string feed = textIn(information, feedKey);
  if (feed.empty()) return;
  controller_ = framework.createController(feed);
  if (!controller_) return;
  const std::string token = textIn(information, tokenKey);
  if (!token.empty()) controller_->setHTTPHeaders({{channelHeader, token}});
  const auto error = controller_->start();
  if (error) log.write("Tilwin updater failed to start: " + *error);
  hasStarted_ = !error;
  controller_->onCanCheckForUpdates([this](bool can) { canCheckForUpdates.set(can); });
}

void UpdaterService::checkForUpdates() {
  if (controller_) controller_->checkForUpdates();
}

}  // namespace tilwin
