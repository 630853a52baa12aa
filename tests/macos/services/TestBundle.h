#pragma once

#import <Foundation/Foundation.h>

#include <filesystem>
#include <string_view>

#include "platform/macos/support/Held.h"
#include "platform/macos/support/Text.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/support/FileText.h"

namespace tilwin::macos {

/// A bundle of a program on the disk.
class TestBundle {
public:
  /// The entries of the information dictionary, as in a property list.
  explicit TestBundle(std::string_view entries = "") {
    const auto resources = path() / "Resources";
    std::filesystem::create_directories(resources);
    writeText(resources / "Info.plist",
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>" +
                  std::string(entries) + "</dict></plist>");
    bundle_ = retained([NSBundle bundleWithPath:text(path().native())]);
  }

  TestBundle(const TestBundle&) = delete;
  TestBundle& operator=(const TestBundle&) = delete;
  /// Also at the end of the process, when there is no pool any more.
  ~TestBundle() {
    const AutoreleasePool pool;
    bundle_ = {};
  }

  [[nodiscard]] NSBundle* bundle() const { return bundle_.get(); }
  [[nodiscard]] std::filesystem::path path() const { return folder_.path() / "Tilwin.app"; }

  /// Puts a loadable file into the bundle as a private framework.
  void addFramework(const std::string& name, const std::filesystem::path& executable) {
    const auto framework =
        std::filesystem::path(utf8([bundle() privateFrameworksPath])) / (name + ".framework");
    const auto current = framework / "Versions" / "Current";
    std::filesystem::create_directories(current / "Resources");
    std::filesystem::create_symlink(executable, current / name);
    std::filesystem::create_directory_symlink(current / "Resources", framework / "Resources");
    writeText(current / "Resources" / "Info-gnustep.plist", "{ NSExecutable = \"" + name + "\"; }");
  }

private:
  TemporaryFolder folder_;
  Held<NSBundle*> bundle_;
};

}  // namespace tilwin::macos
