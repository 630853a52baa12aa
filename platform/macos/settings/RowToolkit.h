#pragma once

#import <AppKit/AppKit.h>

#include "platform/drawing/RowLayout.h"
#include "platform/macos/settings/Measured.h"

namespace tilwin::macos {

/// How rows of a form are laid out with AppKit's views.
struct RowToolkit {
  using View = MeasuredView*;

  static constexpr drawing::RowMetrics metrics{};

  [[nodiscard]] static bool isShown(MeasuredView* view) { return view != nil && ![view isHidden]; }
  [[nodiscard]] static double naturalWidth(MeasuredView* view) { return [view naturalWidth]; }
  [[nodiscard]] static double height(MeasuredView* view, double width) { return [view heightForWidth:width]; }
  [[nodiscard]] static double beside(MeasuredView* /*view*/) { return 3; }
};

using RowColumns = drawing::RowColumns;
using RowParts = drawing::RowParts<MeasuredView*>;
using RowLayout = drawing::RowLayout<RowToolkit>;

}  // namespace tilwin::macos
