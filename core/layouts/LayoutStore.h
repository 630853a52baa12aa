#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/layouts/Layout.h"

namespace tilwin {

/// Every saved layout: the user's own, and those the program keeps for the display sets seen last.
struct LayoutStore {
  static constexpr std::size_t maximumAutomatic = 6;
  /// No file larger than this is read or written, in bytes; some 2,000 layouts of a dozen windows, and read
  /// in about a second at worst, whatever is in it.
  static constexpr std::size_t maximumFileSize = std::size_t{8} << 20;

  std::vector<Layout> layouts;  ///< both sorts, in the order added

  bool operator==(const LayoutStore&) const = default;

  /// Nothing when there is no such file or it cannot be read.
  [[nodiscard]] static std::optional<LayoutStore> read(const std::filesystem::path& from);
  /// The same, but then an empty store.
  [[nodiscard]] static LayoutStore load(const std::filesystem::path& from);
  /// Replaces the file in one step, whatever it held; `LayoutsFile` takes care of that. Throws
  /// `std::filesystem::filesystem_error` or `JsonError`, and then the old file stands as it was.
  void write(const std::filesystem::path& to) const;

  /// In alphabetic order, ignoring case, as the user's language has it.
  [[nodiscard]] std::vector<Layout> userLayouts() const;
  /// The program's own layout for these displays.
  [[nodiscard]] std::optional<Layout> automatic(const DisplaySignature& signature) const;

  /// Replaces the layout of the same id where it stands, else adds it at the end.
  void save(Layout layout);
  void remove(const Uuid& id);
  /// Does nothing when there is no such layout.
  void rename(const Uuid& id, std::string to);
  /// Keeps the layout as the one for its displays, in place and under the id of an earlier one; without a
  /// signature it does nothing. Of all automatic layouts the `maximumAutomatic` newest stay.
  void setAutomatic(Layout layout);

private:
  void keepNewestAutomatic();
};

}  // namespace tilwin
