// Writes the files that are made from the table of commands into the source tree: tilwin-pages FOLDER

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "packaging/commands/CommandPages.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: tilwin-pages SOURCE_FOLDER\n", stderr);
    return 2;
  }
  for (const tilwin::CommandPage& page : tilwin::CommandPages::all()) {
    const auto path = std::filesystem::path(argv[1]) / page.path;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << page.make();
    if (!file.flush()) {
      std::fprintf(stderr, "cannot write %s\n", path.c_str());
      return 1;
    }
  }
}
