#include "core/doctor/KnownManagers.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>

namespace tilwin {
namespace {

TEST(KnownManagers, AreFoundByWhatTheyCallThemselves) {
  constexpr auto names =
      std::to_array<std::pair<const char*, const char*>>({{"Openbox", "openbox"},
                                                          {"Xfwm4", "xfwm4"},
                                                          {"Metacity", "metacity"},
                                                          {"KWin", "kwin"},
                                                          {"Metacity (Marco)", "marco"},
                                                          {"i3", "i3"},
                                                          {"JWM", "jwm"},
                                                          {"Fluxbox", "fluxbox"},
                                                          {"Mutter (Muffin)", "muffin"},
                                                          {"GNOME Shell", "GNOME Shell"},
                                                          {"IceWM 3.3.1 (Linux/x86_64)", "icewm"}});
  for (const auto& [announced, name] : names)
    EXPECT_EQ(KnownManagers::named(announced).name, name) << announced;
}

TEST(KnownManagers, OfOthersNothingIsKnown) {
  for (const char* name : {"", "Somebody's own"}) {
    const auto manager = KnownManagers::named(name);
    EXPECT_EQ(manager.name, "");
    EXPECT_EQ(KnownManagers::use(manager, "ctrl+alt+left"), "");
  }
}

TEST(KnownManagers, UseSomeOfOurKeysUnlessTheirUserHasChangedThat) {
  const auto use = [](const char* manager, const char* keys) {
    return KnownManagers::use(KnownManagers::named(manager), keys);
  };
  EXPECT_EQ(use("Openbox", "ctrl+alt+left"), "its desktops");
  EXPECT_EQ(use("Openbox", "ctrl+alt+shift+left"), "");
  EXPECT_EQ(use("Metacity", "ctrl+alt+shift+left"), "moving windows to its desktops");
  EXPECT_EQ(use("Metacity", "ctrl+alt+d"), "");
  EXPECT_EQ(use("Metacity (Marco)", "ctrl+alt+d"), "showing the desktop");
  EXPECT_EQ(use("IceWM 3.3.1", "ctrl+alt+="), "its desktops");
  EXPECT_EQ(use("KWin", "ctrl+alt+left"), "");
}

}  // namespace
}  // namespace tilwin
