#include "app/doctor/FileLooks.h"

#include <fstream>
#include <system_error>
#include <utility>

namespace tilwin {

FileFacts looksOf(std::string what, std::filesystem::path path, bool isPrivate) {
  FileFacts facts{.what = std::move(what), .path = std::move(path), .isPrivate = isPrivate};
  std::error_code unknown;
  const auto status = std::filesystem::status(facts.path, unknown);
  facts.exists = std::filesystem::exists(status);
  if (!facts.exists) return facts;
  facts.mode = static_cast<std::uint32_t>(status.permissions() & std::filesystem::perms::all);
  if (!std::filesystem::is_regular_file(status)) return facts;
  const auto size = std::filesystem::file_size(facts.path, unknown);
  facts.size = unknown ? 0 : size;
  facts.isReadable = std::ifstream(facts.path).is_open();
  return facts;
}

}  // namespace tilwin
