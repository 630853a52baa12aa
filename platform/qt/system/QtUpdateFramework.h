#pragma once

#include <string>
#include <utility>

#include "platform/ports/Dialogs.h"
#include "platform/ports/FileViewer.h"
#include "platform/ports/SystemLog.h"
#include "platform/ports/UpdateFramework.h"
#include "platform/qt/system/FeedFetch.h"

namespace tilwin::qt {

/// Reads an appcast when the user asks for it, and says whether there is a newer release; offers to open the
/// page of that release. It downloads and runs nothing. Nothing of Qt Network is made before the first check,
/// and nothing of it is kept after a check.
class QtUpdateFramework final : public UpdateFramework {
public:
  /// What a check uses to talk to the user. All of it must outlive the controllers.
  struct Ports {
    Dialogs& dialogs;
    FileViewer& files;
    SystemLog& log;
  };

  /// `version` is that of this program.
  QtUpdateFramework(std::string version, const Ports& ports, FeedFetch::Limits limits = {})
      : version_(std::move(version)), ports_(ports), limits_(limits) {}

  /// Starting the controller fails if `feed` is not an address of http or https. Checks start one at a time.
  /// A check that fails is logged in one line and the user is told that it failed.
  [[nodiscard]] std::unique_ptr<UpdateController> createController(const std::string& feed) override;

private:
  std::string version_;
  Ports ports_;
  FeedFetch::Limits limits_;
};

}  // namespace tilwin::qt
