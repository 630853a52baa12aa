#include "platform/qt/settings/RowToolkit.h"

#include <QWidget>

#include "platform/qt/settings/TextLabel.h"

namespace tilwin::qt {

bool RowToolkit::isShown(const QWidget* widget) { return widget != nullptr && !widget->isHidden(); }

double RowToolkit::naturalWidth(const QWidget* widget) {
  const auto* const label = dynamic_cast<const TextLabel*>(widget);
  return label == nullptr ? widget->sizeHint().width() : label->lineWidth();
}

double RowToolkit::height(const QWidget* widget, double width) {
  return widget->hasHeightForWidth() ? widget->heightForWidth(static_cast<int>(width))
                                     : widget->sizeHint().height();
}

/// Controls have their rings there.
double RowToolkit::beside(const QWidget* widget) {
  constexpr double besideText = 4;
  return dynamic_cast<const TextLabel*>(widget) == nullptr ? 0 : besideText;
}

}  // namespace tilwin::qt
