#pragma once

#include "platform/drawing/RowLayout.h"
#include "platform/qt/settings/Theme.h"

class QWidget;

namespace tilwin::qt {

/// How rows of a form are laid out with Qt's widgets.
struct RowToolkit {
  using View = QWidget*;

  static constexpr drawing::RowMetrics metrics{.ring = metrics::ring, .controlGap = 2};

  [[nodiscard]] static bool isShown(const QWidget* widget);
  [[nodiscard]] static double naturalWidth(const QWidget* widget);
  [[nodiscard]] static double height(const QWidget* widget, double width);
  [[nodiscard]] static double beside(const QWidget* widget);
};

using RowColumns = drawing::RowColumns;
using RowParts = drawing::RowParts<QWidget*>;
using RowLayout = drawing::RowLayout<RowToolkit>;

}  // namespace tilwin::qt
