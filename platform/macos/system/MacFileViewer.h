#pragma once

#include "platform/ports/FileViewer.h"
#include "platform/ports/SystemLog.h"

namespace tilwin::macos {

/// Opens addresses by NSWorkspace (macOS 10.0) and shows files in the Finder (macOS 10.6). Main thread only.
class MacFileViewer final : public FileViewer {
public:
  /// The log must outlive this.
  explicit MacFileViewer(SystemLog& log) : log_(log) {}

  void openURL(const std::string& address) override;
  /// Shows the nearest folder above that exists if the file does not.
  void reveal(const std::filesystem::path& file) override;

private:
  SystemLog& log_;
};

}  // namespace tilwin::macos
