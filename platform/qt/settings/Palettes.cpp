#include <algorithm>
#include <array>
#include <span>

#include "platform/qt/settings/ColourScheme.h"

namespace tilwin::qt {
namespace {

struct RoleColour {
  QPalette::ColorRole role;
  QRgb colour;
};

constexpr std::array lightColours = std::to_array<RoleColour>({
    {QPalette::Window, 0xfff6f6f8},
    {QPalette::Base, 0xffffffff},
    {QPalette::AlternateBase, 0xfff0f0f3},
    {QPalette::Button, 0xfff6f6f8},
    {QPalette::WindowText, 0xff1c1d21},
    {QPalette::Text, 0xff1c1d21},
    {QPalette::ButtonText, 0xff1c1d21},
    {QPalette::PlaceholderText, 0xff77797f},
    {QPalette::Highlight, 0xff2f6fdb},
    {QPalette::HighlightedText, 0xffffffff},
    {QPalette::Link, 0xff1f5fc9},
    {QPalette::ToolTipBase, 0xff2b2c30},
    {QPalette::ToolTipText, 0xfff4f4f6},
});

constexpr std::array darkColours = std::to_array<RoleColour>({
    {QPalette::Window, 0xff242529},
    {QPalette::Base, 0xff1c1d20},
    {QPalette::AlternateBase, 0xff2a2b30},
    {QPalette::Button, 0xff34353b},
    {QPalette::WindowText, 0xfff1f1f3},
    {QPalette::Text, 0xfff1f1f3},
    {QPalette::ButtonText, 0xfff1f1f3},
    {QPalette::PlaceholderText, 0xff95979e},
    {QPalette::BrightText, 0xffffffff},
    {QPalette::Highlight, 0xff4f8ff7},
    {QPalette::HighlightedText, 0xffffffff},
    {QPalette::Link, 0xff7fb0ff},
    {QPalette::ToolTipBase, 0xff3a3b41},
    {QPalette::ToolTipText, 0xfff1f1f3},
});

QPalette paletteOf(std::span<const RoleColour> colours) {
  const auto colourOf = [&](QPalette::ColorRole role) {
    return QColor(std::ranges::find(colours, role, &RoleColour::role)->colour);
  };
  // Bevels and shades are derived from the button's colour.
  QPalette palette(colourOf(QPalette::Button), colourOf(QPalette::Window));
  for (const auto& [role, colour] : colours) palette.setColor(role, QColor(colour));
  QColor faded = colourOf(QPalette::Text);
  faded.setAlpha(110);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, faded);
  }
  return palette;
}

}  // namespace

QPalette lightPalette() { return paletteOf(lightColours); }

QPalette darkPalette() { return paletteOf(darkColours); }

}  // namespace tilwin::qt
