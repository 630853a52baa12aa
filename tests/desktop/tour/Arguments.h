#pragma once

#include <filesystem>

namespace tilwin::desktop {

struct TourArguments {
  std::filesystem::path tilwin;  ///< the program
  std::filesystem::path output;  ///< the folder for the pictures
};

}  // namespace tilwin::desktop
