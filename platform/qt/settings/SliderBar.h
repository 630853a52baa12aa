#pragma once

#include <QSlider>

#include "platform/ports/FormModel.h"
#include "platform/qt/settings/Report.h"

namespace tilwin::qt {

/// The groove and knob of a slider. A click moves the knob there; the mouse wheel does not, so that a page
/// can be scrolled over it. A continuous slider moves by a hundredth of its range with the arrow keys, and by
/// a tenth with the page keys.
class SliderBar final : public QSlider {
public:
  SliderBar(const FormSlider& slider, const Report& report, QWidget* parent);

  void display(const FormSlider& slider);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

private:
  [[nodiscard]] double valueAt(int position) const;
  [[nodiscard]] int positionOf(double value) const;
  /// The middle of the knob.
  [[nodiscard]] double knobX() const;
  [[nodiscard]] int positionAt(double x) const;

  FormSlider slider_;
  double grip_ = 0;  ///< from the middle of the knob to the pointer
};

}  // namespace tilwin::qt
