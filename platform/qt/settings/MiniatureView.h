#pragma once

#include <QWidget>

#include "platform/ports/FormModel.h"
#include "platform/qt/settings/Report.h"

namespace tilwin::qt {

/// A miniature of a display with tiles on it. One with an id can be dragged on with the left mouse button.
class MiniatureView final : public QWidget {
public:
  enum class Scale { small, large };

  MiniatureView(Scale scale, const Report& report, QWidget* parent);

  void display(const FormPicture& picture);
  [[nodiscard]] const FormPicture& picture() const { return picture_; }
  /// Where the display is drawn, in this widget.
  [[nodiscard]] QRectF screen() const;

  [[nodiscard]] QSize sizeHint() const override;

protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

private:
  [[nodiscard]] Point fractionsAt(const QPointF& at) const;
  [[nodiscard]] QRectF areaOf(const FormPicture::Tile& tile) const;
  [[nodiscard]] Qt::CursorShape cursorAt(const QPointF& at) const;
  void drawTile(QPainter& painter, const FormPicture::Tile& tile) const;

  Scale scale_;
  const Report& report_;
  FormPicture picture_;
  bool isHeld_ = false;
};

}  // namespace tilwin::qt
