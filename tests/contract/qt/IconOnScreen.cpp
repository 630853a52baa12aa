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
  QRect area;
  int count = 0;
  for (int y = 0; y < screen.height(); ++y) {
    const auto* line = reinterpret_cast<const QRgb*>(screen.constScanLine(y));
    for (int x = 0; x < screen.width(); ++x) {
      if ((line[x] | 0xff000000U) != qt::templateColour) continue;
      area |= QRect(x, y, 1, 1);
      ++count;
    }
  }
  if (count < fewestPixels) return std::nullopt;
  return IconOnScreen{area, screen.copy(area.adjusted(-margin, -margin, margin, margin))};
}

}  // namespace tilwin::contract
