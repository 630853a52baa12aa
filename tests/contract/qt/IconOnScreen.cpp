#include "tests/contract/qt/IconOnScreen.h"

#include "platform/qt/menu/TemplateIcon.h"
#include "tests/contract/qt/QtDesktop.h"
#include "tests/desktop/harness/Screenshot.h"

namespace tilwin::contract {
namespace {

constexpr int fewestPixels = 20;
constexpr int margin = 6;

}  // namespace

desktop::PixelPoint IconOnScreen::centre() const { return {area.center().x(), area.center().y()}; }

std::optional<IconOnScreen> findIcon() {
  const QImage screen = desktop::screenshot(qtDesktop().desktop().connection());
  const auto [area, pixels] = desktop::areaOf(qt::templateColour, screen);
  if (pixels < fewestPixels) return std::nullopt;
  return IconOnScreen{area, screen.copy(area.adjusted(-margin, -margin, margin, margin))};
}

}  // namespace tilwin::contract
