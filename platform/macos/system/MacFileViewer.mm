#include "platform/macos/system/MacFileViewer.h"

#import <AppKit/AppKit.h>

#include <system_error>

#include "platform/macos/support/Text.h"

namespace tilwin::macos {
namespace {

NSURL* fileURL(const std::filesystem::path& path) { return [NSURL fileURLWithPath:text(path.native())]; }

std::filesystem::path nearestThatExists(std::filesystem::path file) {
  std::error_code refusal;
  while (!std::filesystem::exists(file, refusal) && file.has_relative_path()) file = file.parent_path();
  return file;
}

}  // namespace

void MacFileViewer::openURL(const std::string& address) {
  NSURL* const url = [NSURL URLWithString:text(address)];
  if ([[url scheme] length] == 0) return log_.write("Tilwin: not an address: " + address);
  if (![[NSWorkspace sharedWorkspace] openURL:url]) {
    log_.write("Tilwin: there is no program to open " + address);
  }
}

void MacFileViewer::reveal(const std::filesystem::path& file) {
  const auto shown = nearestThatExists(file);
  if (shown == file) {
    [[NSWorkspace sharedWorkspace] activateFileViewerSelectingURLs:@[ fileURL(file) ]];
  } else {
    openURL(utf8([fileURL(shown) absoluteString]));
  }
}

}  // namespace tilwin::macos
