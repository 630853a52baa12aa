#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/doctor/DesktopFacts.h"

namespace tilwin {

/// What the system around a desktop tells of itself, and where it keeps what the program needs.
struct SystemFacts {
  enum class Commands : std::uint8_t {
    elsewhere,  ///< this system has another way than a file
    socket,
    noFolder,  ///< there is no folder for the socket
  };

  std::vector<NamedFact> versions{};
  std::optional<std::filesystem::path> home{};
  std::optional<std::filesystem::path> settingsFile{};
  Commands commands = Commands::elsewhere;
  std::optional<std::filesystem::path> socket{};
  std::string session{};   ///< its type, as the login manager calls it
  bool isWayland = false;  ///< the session is one in which only some windows are those of an X server

  bool operator==(const SystemFacts&) const = default;
};

}  // namespace tilwin
