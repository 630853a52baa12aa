#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "core/support/Descriptor.h"

namespace tilwin {

/// A file by its name in a folder that is held open.
struct Place {
  Descriptor folder;
  std::filesystem::path path;

  [[nodiscard]] std::string name() const { return path.filename().string(); }
};

/// A temporary file beside the one that it is to replace. The destructor removes it unless it was moved into
/// place. All but `isOf` throw `std::filesystem::filesystem_error` on failure.
class Draft {
public:
  /// A draft with these permissions, or the default ones (umask). The target must outlive it.
  Draft(const Place& target, std::optional<mode_t> permissions);
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;
  ~Draft() { remove(); }

  void write(std::string_view content);
  /// Puts the content on disk and closes the draft. Returns the facts that it keeps when it is moved.
  struct stat flush();
  void moveIntoPlace();

  /// Whether a draft for a file of this name could have been given that one.
  [[nodiscard]] static bool isOf(const std::string& target, std::string_view name);

private:
  [[nodiscard]] int create(mode_t permissions);
  void remove() const;

  const Place& target_;
  std::string name_;  ///< empty once it is in place
  Descriptor file_;
};

}  // namespace tilwin
