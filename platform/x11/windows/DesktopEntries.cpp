#include "platform/x11/windows/DesktopEntries.h"

#include <glib.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "core/support/AtomicFile.h"

namespace tilwin::x11 {

namespace {

/// The longest name of a file on Linux; an entry's name has the ending besides.
constexpr std::size_t longestId = 255;
constexpr std::size_t mostNames = 256;
/// In bytes. Entries with all their translations have some ten thousand.
constexpr std::size_t largestEntry = std::size_t{1} << 20;

struct KeyFileDeleter {
  void operator()(GKeyFile* file) const { g_key_file_free(file); }
};

struct GFreeDeleter {
  void operator()(char* text) const { g_free(text); }
};

/// Where entries are, the most important first.
std::vector<std::filesystem::path> applicationFolders() {
  std::vector<std::filesystem::path> result{std::filesystem::path(g_get_user_data_dir()) / "applications"};
  for (const char* const* folder = g_get_system_data_dirs(); *folder != nullptr; ++folder) {
    result.push_back(std::filesystem::path(*folder) / "applications");
  }
  return result;
}

/// Reads the first of these entries that can be read. GLib would wait until somebody writes into a named
/// pipe.
bool load(GKeyFile* file, const std::string& name) {
  return std::ranges::any_of(applicationFolders(), [&](const auto& folder) {
    const auto text = AtomicFile::read(folder / name, largestEntry);
    return text &&
           g_key_file_load_from_data(file, text->data(), text->size(), G_KEY_FILE_NONE, nullptr) != FALSE;
  });
}

std::optional<std::string> nameInEntry(const std::string& id) {
  // The id comes from another program; only a plain file name may become part of a path.
  if (id.empty() || id.find('/') != std::string::npos) return std::nullopt;
  const std::unique_ptr<GKeyFile, KeyFileDeleter> file(g_key_file_new());
  if (!load(file.get(), id + ".desktop")) return std::nullopt;
  const std::unique_ptr<char, GFreeDeleter> name(g_key_file_get_locale_string(
      file.get(), G_KEY_FILE_DESKTOP_GROUP, G_KEY_FILE_DESKTOP_KEY_NAME, nullptr, nullptr));
  return name ? std::optional<std::string>(name.get()) : std::nullopt;
}

std::string lowerCased(const std::string& text) {
  const std::unique_ptr<char, GFreeDeleter> lower(g_ascii_strdown(text.c_str(), -1));
  return lower.get();
}

}  // namespace

std::string DesktopEntries::nameOf(const std::string& id, const std::string& otherwise) {
  if (id.size() > longestId) return otherwise;
  auto known = names_.find(id);
  if (known == names_.end()) {
    if (names_.size() == mostNames) names_.clear();
    // A window class is often the id with a capital letter: "Firefox" for firefox.desktop.
    auto name = nameInEntry(id);
    if (!name) name = nameInEntry(lowerCased(id));
    known = names_.emplace(id, std::move(name)).first;
  }
  return known->second.value_or(otherwise);
}

}  // namespace tilwin::x11
