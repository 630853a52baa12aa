#include "platform/x11/wire/ServerNeeds.h"

#include <array>

namespace tilwin::x11 {

namespace {

struct Need {
  bool (*met)(const ServerNeeds&);
  const char* complaint;
};

constexpr std::array needs{
    Need{[](const ServerNeeds& offered) {
           return offered.randr.isAtLeast({1, 5});
         },
         "this X server lacks RandR 1.5; use a server that has it (Xorg 1.18 or later)."},
    Need{[](const ServerNeeds& offered) {
           return offered.xinput.isAtLeast({2, 1});
         },
         "this X server lacks XInput 2.1; use a server that has it (Xorg 1.11 or later)."},
    Need{[](const ServerNeeds& offered) {
           return offered.xkb.isAtLeast({1, 0});
         },
         "this X server lacks the XKB extension; start it with the extension enabled."},
    Need{[](const ServerNeeds& offered) {
           return offered.shape.isAtLeast({1, 1});
         },
         "this X server lacks the SHAPE extension 1.1; use a server that has it (any Xorg)."},
};

}  // namespace

std::optional<std::string> missing(const ServerNeeds& offered) {
  for (const auto& need : needs) {
    if (!need.met(offered)) return std::string(need.complaint);
  }
  return std::nullopt;
}

}  // namespace tilwin::x11
