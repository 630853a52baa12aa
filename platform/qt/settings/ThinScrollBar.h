#pragma once

#include <QScrollBar>

namespace tilwin::qt {

/// A scroll bar that is a rounded handle without a trough. It always takes its room, so that the content does
/// not move when it appears.
class ThinScrollBar final : public QScrollBar {
public:
  explicit ThinScrollBar(QWidget* parent);

  [[nodiscard]] QSize sizeHint() const override;

protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

private:
  [[nodiscard]] QRectF handle() const;
  [[nodiscard]] double travel() const;

  double grip_ = 0;  ///< from the top of the handle to the pointer
};

}  // namespace tilwin::qt
