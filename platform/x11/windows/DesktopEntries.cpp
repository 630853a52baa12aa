#include "platform/x11/windows/DesktopEntries.h"

#include <glib.h>

#include <memory>
#include <optional>

namespace tilwin::x11 {

namespace {

struct KeyFileDeleter {
  void operator()(GKeyFile* file) const { g_key_file_free(file); }
};

struct GFreeDeleter {
  void operator()(char* text) const { g_free(text); }
};

std::optional<std::string> nameInEntry(const std::string& id) {
  // The id comes from another program; only a plain file name may become part of a path.
  if (id.empty() || id.find('/') != std::string::npos) return std::nullopt;
  const std::unique_ptr<GKeyFile, KeyFileDeleter> file(g_key_file_new());
  const std::string path = "applications/" + id + ".desktop";
  if (g_key_file_load_from_data_dirs(file.get(), path.c_str(), nullptr, G_KEY_FILE_NONE, nullptr) == FALSE) {
    return std::nullopt;
  }
  const std::unique_ptr<char, GFreeDeleter> name(g_key_file_get_locale_string(
      file.get(), G_KEY_FILE_DESKTOP_GROUP, G_KEY_FILE_DESKTOP_KEY_NAME, nullptr, nullptr));
  return name ? std::optional<std::string>(name.get()) : std::nullopt;
}

std::string lowerCased(const std::string& text) {
  const std::unique_ptr<char, GFreeDeleter> lower(g_ascii_strdown(text.c_str(), -1));
  return lower.get();
}

}  // namespace

const std::string& DesktopEntries::nameOf(const std::string& id, const std::string& otherwise) {
  const auto known = names_.find(id);
  if (known != names_.end()) return known->second;
  // A window class is often the id with a capital letter: "Firefox" for firefox.desktop.
  auto name = nameInEntry(id);
  if (!name) name = nameInEntry(lowerCased(id));
  return names_.emplace(id, name.value_or(otherwise)).first->second;
}

}  // namespace tilwin::x11
