#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace tilwin {

/// A folder for one benchmark's files, which goes with it.
class BenchFolder {
public:
  BenchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "tilwin-bench-XXXXXX").string();
    path_ = ::mkdtemp(name.data());
  }
  BenchFolder(const BenchFolder&) = delete;
  BenchFolder& operator=(const BenchFolder&) = delete;
  ~BenchFolder() { std::filesystem::remove_all(path_); }

  [[nodiscard]] std::filesystem::path file(const std::string& name) const { return path_ / name; }

private:
  std::filesystem::path path_;
};

}  // namespace tilwin
