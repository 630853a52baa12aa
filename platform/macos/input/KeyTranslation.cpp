#include "platform/macos/input/KeyTranslation.h"

#include <array>

#include "core/settings/HotKeySpec.h"

namespace tilwin::macos {
namespace {

struct Modifier {
  std::uint64_t flag;
  std::uint32_t bit;
};

constexpr std::array modifiers{Modifier{std::uint64_t{1} << 17, HotKeySpec::shift},
                               Modifier{std::uint64_t{1} << 18, HotKeySpec::control},
                               Modifier{std::uint64_t{1} << 19, HotKeySpec::option},
                               Modifier{std::uint64_t{1} << 20, HotKeySpec::cmd}};

}  // namespace

std::uint32_t hotKeyModifiers(std::uint64_t eventModifierFlags) {
  std::uint32_t bits = 0;
  for (const Modifier& modifier : modifiers) {
    if ((eventModifierFlags & modifier.flag) != 0) bits |= modifier.bit;
  }
  return bits;
}

}  // namespace tilwin::macos
