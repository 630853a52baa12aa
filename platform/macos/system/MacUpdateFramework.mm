#include "platform/macos/system/MacUpdateFramework.h"

#include <utility>

#include "platform/macos/support/Action.h"
#include "platform/macos/support/KeyObserver.h"
#include "platform/macos/support/Text.h"

namespace tilwin::macos {
namespace {

using Controller = id<TWSparkleController>;

class SparkleController final : public UpdateController {
public:
  explicit SparkleController(Held<Controller> controller) : controller_(std::move(controller)) {}

  void setHTTPHeaders(const Headers& headers) override {
    NSMutableDictionary* const entries = [NSMutableDictionary dictionary];
    for (const auto& [name, value] : headers) [entries setObject:text(value) forKey:text(name)];
    [updater() setHttpHeaders:entries];
  }

  std::optional<std::string> start() override {
    NSError* error = nil;
    if ([updater() startUpdater:&error]) return std::nullopt;
    return utf8([error localizedDescription]);
  }

  void onCanCheckForUpdates(std::function<void(bool)> handler) override {
    const auto tell = [this, handler = std::move(handler)] { handler([updater() canCheckForUpdates]); };
    auto* const observed = static_cast<NSObject*>(updater());
    observer_ = std::make_unique<KeyObserver>(observed, @"canCheckForUpdates", tell);
  }

  void checkForUpdates() override {
    if ([updater() canCheckForUpdates]) [controller_.get() checkForUpdates:nil];
  }

private:
  [[nodiscard]] id<TWSparkleUpdater> updater() const { return [controller_.get() updater]; }

  Held<Controller> controller_;
  std::unique_ptr<KeyObserver> observer_;
};

}  // namespace

std::unique_ptr<UpdateController> MacUpdateFramework::createController(const std::string& /*feed*/) {
  NSString* const folder = [bundle_.get() privateFrameworksPath];
  NSBundle* const framework =
      [NSBundle bundleWithPath:[folder stringByAppendingPathComponent:@"Sparkle.framework"]];
  if (![framework load]) return nullptr;
  Controller const made = [NSClassFromString(@"SPUStandardUpdaterController") alloc];
  auto controller = owned<Controller>([made initWithStartingUpdater:NO
                                                    updaterDelegate:nil
                                                 userDriverDelegate:nil]);
  if (!controller) return nullptr;
  return std::make_unique<SparkleController>(std::move(controller));
}

}  // namespace tilwin::macos
