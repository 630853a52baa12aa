#include <algorithm>
#include <cstdlib>

#include "tests/desktop/drags/DragTest.h"

namespace tilwin::desktop {

namespace {

/// How far apart two colours are, in the channel where they differ most.
int apart(QRgb first, QRgb second) {
  return std::max({std::abs(qRed(first) - qRed(second)), std::abs(qGreen(first) - qGreen(second)),
                   std::abs(qBlue(first) - qBlue(second))});
}

/// A manager that does not composite, with a program beside it that does.
class CompositedDrags : public Drags {
public:
  static void SetUpTestSuite() {
    Drags::SetUpTestSuite();
    compositor_ = session().start("picom", {"picom", "--backend", "xrender", "--config", "/dev/null"});
  }
  static void TearDownTestSuite() {
    compositor_ = {};
    Drags::TearDownTestSuite();
  }

protected:
  static QRgb colourAt(PixelPoint point) {
    const Rect pixel{static_cast<double>(point.x), static_cast<double>(point.y), 1, 1};
    return screenshot(desktop().connection(), pixel).pixel(0, 0);
  }

private:
  static ChildProcess compositor_;
};

ChildProcess CompositedDrags::compositor_;

}  // namespace

TEST_F(CompositedDrags, ThePreviewLetsThroughWhatIsBelowIt) {
  ASSERT_TRUE(desktop().waitUntil([] { return desktop().composited(); }, startTimeout));
  const TestWindow dark = session().window({.area = {0, 100, 300, 300}, .colour = 0x202020});
  const TestWindow bright = session().window({.area = {0, 600, 300, 300}, .colour = 0xe0e0e0});
  const TestWindow window = session().window();
  focusAtStart(window.id());
  constexpr PixelPoint onDark{150, 250};
  constexpr PixelPoint onBright{150, 800};
  ASSERT_TRUE(desktop().waitUntil([&] { return apart(colourAt(onBright), 0xffe0e0e0) < 3; }));
  const QRgb darkBefore = colourAt(onDark);
  const QRgb brightBefore = colourAt(onBright);
  hold(window.id());
  // The window itself must not hide what is looked at.
  moveTo({1919, 1079});
  moveTo({0, 1000});
  EXPECT_TRUE(previews(leftHalf));
  const auto tinted = [&] {
    return apart(colourAt(onDark), darkBefore) > 10 && apart(colourAt(onBright), brightBefore) > 10;
  };
  EXPECT_TRUE(desktop().waitUntil(tinted)) << "nothing is painted over what is below";
  EXPECT_TRUE(previews(leftHalf, "composited"));
  EXPECT_GT(apart(colourAt(onDark), colourAt(onBright)), 100) << "what is below is hidden";
  letGo();
  EXPECT_TRUE(staysAt(window.id(), leftHalf));
}

}  // namespace tilwin::desktop
