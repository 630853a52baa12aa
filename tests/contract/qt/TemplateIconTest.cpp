#include "platform/qt/menu/TemplateIcon.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QPainter>
#include <cmath>

#include "tests/contract/qt/Pictures.h"
#include "tests/contract/qt/StatusIcon.h"

namespace tilwin::contract {
namespace {

/// Relative luminance (WCAG 2).
double luminance(QColor colour) {
  const auto linear = [](double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

/// Contrast ratio (WCAG 2).
double contrast(QColor one, QColor other) {
  const double lighter = std::max(luminance(one), luminance(other));
  const double darker = std::min(luminance(one), luminance(other));
  return (lighter + 0.05) / (darker + 0.05);
}

/// The picture has rectangles alone, whose edges are straight.
TemplateImage rectangles() {
  return {.size = {18, 18},
          .shapes = {{.frame = {2, 3, 14, 12}, .lineWidth = 1.5}, {.frame = {4.5, 5, 4.5, 8}}}};
}

struct Bounds {
  QRect area{};
  int partlyCovered = 0;

  /// Corners of thin lines may be softened.
  [[nodiscard]] bool isSharp() const { return partlyCovered <= 4; }
};

Bounds boundsOf(const QImage& image) {
  Bounds bounds;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const int alpha = qAlpha(image.pixel(x, y));
      if (alpha > 0) bounds.area |= QRect(x, y, 1, 1);
      if (alpha > 0 && alpha < 255) ++bounds.partlyCovered;
    }
  }
  return bounds;
}

TEST(TemplateIcon, HasSharpEdgesAtTheSizesOfPanels) {
  for (const int side : {16, 18, 20, 22, 24, 28, 32, 36, 40, 44, 48, 64, 72}) {
    EXPECT_TRUE(boundsOf(qt::drawTemplate(rectangles(), side)).isSharp()) << side;
  }
}

TEST(TemplateIcon, IsSymmetricWhereTheImageIs) {
  for (const int side : {16, 18, 22, 24, 32, 36, 44, 48, 64}) {
    const TemplateImage frame{.size = {18, 18}, .shapes = {{.frame = {2, 2, 14, 14}, .lineWidth = 1.5}}};
    const QRect area = boundsOf(qt::drawTemplate(frame, side)).area;
    EXPECT_EQ(area.width(), area.height()) << side;
    EXPECT_EQ(area.left() + area.right(), area.top() + area.bottom()) << side;
    EXPECT_LE(std::abs(area.left() - (side - 1 - area.right())), 1) << side;
  }
}

TEST(TemplateIcon, IsCentredAtWholeAndHalfMultiplesOfItsSize) {
  const TemplateImage full{.size = {18, 18}, .shapes = {{.frame = {0, 0, 18, 18}}}};
  const auto widthAt = [&](int side) { return boundsOf(qt::drawTemplate(full, side)).area; };
  EXPECT_TRUE(widthAt(18) == QRect(0, 0, 18, 18));
  EXPECT_TRUE(widthAt(22) == QRect(2, 2, 18, 18));
  EXPECT_TRUE(widthAt(24) == QRect(3, 3, 18, 18));
  EXPECT_TRUE(widthAt(32) == QRect(2, 2, 27, 27));
  EXPECT_TRUE(widthAt(36) == QRect(0, 0, 36, 36));
  EXPECT_TRUE(widthAt(16) == QRect(0, 0, 16, 16));
}

TEST(TemplateIcon, FaintShapesAreTranslucent) {
  const TemplateImage faint{.size = {18, 18}, .shapes = {{.frame = {0, 0, 18, 18}, .opacity = 0.5}}};
  EXPECT_NEAR(qAlpha(qt::drawTemplate(faint, 18).pixel(9, 9)), 128, 1);
}

TEST(TemplateIcon, IsDrawnInThePixelsOfTheScreenAtTwiceTheScale) {
  QImage screen(40, 40, QImage::Format_ARGB32_Premultiplied);
  screen.setDevicePixelRatio(2);
  screen.fill(Qt::transparent);
  QPainter painter(&screen);
  qt::templateIcon(rectangles()).paint(&painter, QRect(1, 1, 18, 18));
  painter.end();
  EXPECT_TRUE(boundsOf(screen).isSharp());
  EXPECT_TRUE(screen.copy(2, 2, 36, 36) == qt::drawTemplate(rectangles(), 36));
}

TEST(TemplateIcon, ItsColourStandsOutOnBlackOnWhiteAndBetweenThem) {
  EXPECT_GE(contrast(QColor(qt::templateColour), Qt::black), 4);
  EXPECT_GE(contrast(QColor(qt::templateColour), Qt::white), 4);
}

struct PanelCase {
  const char* name;
  Panel panel;
  PanelLook look;
};

std::ostream& operator<<(std::ostream& out, const PanelCase& panel) { return out << panel.name; }

class IconInPanel : public testing::TestWithParam<PanelCase> {};

TEST_P(IconInPanel, IsSharpAndStandsOut) {
  const auto panel = startPlain(GetParam().panel, GetParam().look);
  const StatusIcon icon;
  ASSERT_TRUE(StatusIcon::comes());
  // The panel may draw the icon before its own background.
  runMainLoop(desktop::Milliseconds{300});
  const auto seen = findIcon();
  ASSERT_TRUE(seen);
  seen->picture.save(QString::fromStdString(pictureFile(std::string("icon-") + GetParam().name)));
  const QColor around = seen->picture.pixelColor(seen->picture.width() / 2, 1);
  EXPECT_EQ(around.lightnessF() > 0.5, GetParam().look == PanelLook::light);
  EXPECT_GE(contrast(QColor(qt::templateColour), around), 3);
  // The outer edges of the outline, which is two points wide.
  EXPECT_TRUE(seen->area.size() == QSize(16, 14)) << seen->area.width() << " x " << seen->area.height();
}

INSTANTIATE_TEST_SUITE_P(Panels, IconInPanel,
                         testing::Values(PanelCase{"tint2_light", Panel::tint2, PanelLook::light},
                                         PanelCase{"tint2_dark", Panel::tint2, PanelLook::dark},
                                         PanelCase{"xfce4_light", Panel::xfce, PanelLook::light},
                                         PanelCase{"xfce4_dark", Panel::xfce, PanelLook::dark}),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace tilwin::contract
