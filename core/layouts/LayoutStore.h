#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/layouts/Layout.h"
#include "core/support/AtomicFile.h"

namespace tilwin {

/// All saved layouts: the user's own, and the automatic ones that the program keeps per set of displays. A
/// plain value; `LayoutsFile` connects it to its file.
struct LayoutStore {
  static constexpr std::size_t maximumAutomatic = 6;  ///< older automatic layouts are dropped
  /// Larger files are neither read nor written. In bytes; enough for about 2,000 layouts of twelve windows.
  /// Reading a file of this size takes up to about a second, whatever it contains.
  static constexpr std::size_t maximumFileSize = std::size_t{8} << 20;

  std::vector<Layout> layouts;  ///< both kinds, in the order added

  bool operator==(const LayoutStore&) const = default;

  /// Returns nothing if the file is missing, too large or not valid as a whole.
  [[nodiscard]] static std::optional<LayoutStore> read(const std::filesystem::path& from);
  /// Like `read`, but returns an empty store instead of nothing.
  [[nodiscard]] static LayoutStore load(const std::filesystem::path& from);
  /// Replaces the file atomically, without looking at its old content (`LayoutsFile::write` does that first).
  /// Throws `std::filesystem::filesystem_error` or `JsonError` and then leaves the old file intact.
  void write(const std::filesystem::path& to) const;
  /// Like the other `write`, unless the file no longer matches `old` when all but the rename is done: then it
  /// is left alone and nothing is returned. Otherwise returns the stamp of what was written.
  [[nodiscard]] std::optional<AtomicFile::Stamp> write(const std::filesystem::path& to,
                                                       const std::optional<AtomicFile::Stamp>& old) const;

  /// The layouts that are not automatic, in alphabetic order of the user's locale, ignoring case.
  [[nodiscard]] std::vector<Layout> userLayouts() const;
  /// The automatic layout for these displays, if there is one.
  [[nodiscard]] std::optional<Layout> automatic(const DisplaySignature& signature) const;

  /// Replaces the layout with the same id, or adds it at the end.
  void save(Layout layout);
  void remove(const Uuid& id);
  /// Does nothing if there is no such layout.
  void rename(const Uuid& id, std::string to);
  /// Stores the layout as the automatic one for its displays. Replaces an earlier one for the same displays
  /// and takes over its id. Then drops all but the `maximumAutomatic` newest automatic layouts. Does nothing
  /// for a layout without a signature.
  void setAutomatic(Layout layout);

private:
  [[nodiscard]] std::string textFor(const std::filesystem::path& file) const;
  void keepNewestAutomatic();
};

}  // namespace tilwin
