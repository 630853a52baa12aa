#pragma once

#include <filesystem>
#include <string>

namespace tilwin {

/// Shows files and web pages to the user in the programs meant for them. Returns at once; a failure is only
/// logged.
class FileViewer {
public:
  FileViewer() = default;
  FileViewer(const FileViewer&) = delete;
  FileViewer& operator=(const FileViewer&) = delete;
  virtual ~FileViewer() = default;

  /// Opens an address in the program that handles its scheme.
  virtual void openURL(const std::string& address) = 0;
  /// Shows the file in the file manager, selected in its folder; the folder alone if the file does not exist.
  virtual void reveal(const std::filesystem::path& file) = 0;
};

}  // namespace tilwin
