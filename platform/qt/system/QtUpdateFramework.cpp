#include "platform/qt/system/QtUpdateFramework.h"

#include <QMetaObject>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QUrl>
#include <memory>

#include "platform/qt/system/Appcast.h"

namespace tilwin::qt {
namespace {

class QtUpdateController final : public UpdateController {
public:
  QtUpdateController(const std::string& feed, std::string version, const QtUpdateFramework::Ports& ports,
                     const FeedFetch::Limits& limits)
      : feed_(QString::fromStdString(feed), QUrl::StrictMode),
        version_(std::move(version)),
        ports_(ports),
        limits_(limits) {}

  void setHTTPHeaders(const Headers& headers) override { headers_ = headers; }

  std::optional<std::string> start() override {
    if (!FeedFetch::canFetch(feed_)) return "the address of the feed is not one of http or https";
    setCanCheck(true);
    return std::nullopt;
  }

  void onCanCheckForUpdates(std::function<void(bool)> handler) override {
    onCanCheck_ = std::move(handler);
    if (onCanCheck_) onCanCheck_(canCheck_);
  }

  void checkForUpdates() override {
    if (!canCheck_) return;
    setCanCheck(false);
    fetch_ = std::make_unique<FeedFetch>(feed_, headers_, limits_, [this](const FeedFetch::Result& result) {
      QMetaObject::invokeMethod(
          &context_, [this, result] { finish(result); }, Qt::QueuedConnection);
    });
  }

private:
  void setCanCheck(bool can) {
    canCheck_ = can;
    if (onCanCheck_) onCanCheck_(can);
  }

  void finish(const FeedFetch::Result& result) {
    fetch_.reset();
    Appcast::Reading reading{.problem = result.problem};
    if (result.document)
      reading = Appcast::read({result.document->data(), static_cast<std::size_t>(result.document->size())});
    // This may be destroyed while a dialog is open.
    const QPointer<QObject> alive(&context_);
    ports_.dialogs.activate();
    reading.newest ? tell(*reading.newest) : tellFailure(reading.problem);
    if (alive) setCanCheck(true);
  }

  void tell(const Appcast::Release& newest) {
    const auto own = ReleaseVersion::parse(version_);
    if (own && newest.version <= *own)
      return ports_.dialogs.alert({"Tilwin is up to date", "Version " + version_ + " is the newest."});
    const DialogText text{"Tilwin " + newest.name + " is available", "You have version " + version_ + "."};
    if (newest.page.empty()) return ports_.dialogs.alert(text);
    // The ports outlive this, which a dialog may not.
    FileViewer& files = ports_.files;
    if (ports_.dialogs.confirm(text, "Open Its Web Page")) files.openURL(newest.page);
  }

  void tellFailure(const std::string& problem) {
    ports_.log.write("Tilwin: cannot check for updates: " + problem);
    ports_.dialogs.alert({"The check for updates failed",
                          "Tilwin could not learn whether there is a newer version. Try again later."});
  }

  QUrl feed_;
  std::string version_;
  QtUpdateFramework::Ports ports_;
  FeedFetch::Limits limits_;
  Headers headers_;
  bool canCheck_ = false;
  std::function<void(bool)> onCanCheck_;
  std::unique_ptr<FeedFetch> fetch_;
  QObject context_;
};

}  // namespace

std::unique_ptr<UpdateController> QtUpdateFramework::createController(const std::string& feed) {
  return std::make_unique<QtUpdateController>(feed, version_, ports_, limits_);
}

}  // namespace tilwin::qt
