#include "platform/qt/menu/TemplateIcon.h"

#include <QIconEngine>
#include <QPainter>
#include <QPen>
#include <QPixmap>
#include <QRect>
#include <QRectF>
#include <QSize>
#include <algorithm>
#include <cmath>

namespace tilwin::qt {
namespace {

double templateScale(const TemplateImage& image, int side) {
  const double fitting = side / std::max(image.size.width, image.size.height);
  return fitting < 1 ? fitting : std::floor(fitting * 2) / 2;
}

/// The nearest whole pixels; what lies halfway grows, so that a symmetric picture stays symmetric.
QRectF onPixels(const QRectF& rect) {
  const auto low = [](double edge) { return std::ceil(edge - 0.5); };
  const auto high = [](double edge) { return std::floor(edge + 0.5); };
  return {QPointF(low(rect.left()), low(rect.top())), QPointF(high(rect.right()), high(rect.bottom()))};
}

void drawShape(QPainter& painter, const TemplateImage::Shape& shape, double scale) {
  const double line = shape.lineWidth > 0 ? std::max(1.0, std::round(shape.lineWidth * scale)) : 0;
  const QRectF frame(shape.frame.x * scale, shape.frame.y * scale, shape.frame.width * scale,
                     shape.frame.height * scale);
  const double half = line / 2;
  const QRectF outline =
      onPixels(frame.adjusted(-half, -half, half, half)).adjusted(half, half, -half, -half);
  painter.setOpacity(shape.opacity);
  painter.setPen(line > 0 ? QPen(QColor(templateColour), line, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin)
                          : QPen(Qt::NoPen));
  painter.setBrush(line > 0 ? QBrush(Qt::NoBrush) : QBrush(QColor(templateColour)));
  painter.drawRoundedRect(outline, shape.cornerRadius * scale, shape.cornerRadius * scale);
}

class TemplateIconEngine : public QIconEngine {
public:
  explicit TemplateIconEngine(TemplateImage image) : image_(std::move(image)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
    const double ratio = painter->device()->devicePixelRatioF();
    const int side = std::min(rect.width(), rect.height());
    QImage image = drawTemplate(image_, static_cast<int>(std::lround(side * ratio)));
    image.setDevicePixelRatio(ratio);
    painter->drawImage(rect.topLeft() + QPoint((rect.width() - side) / 2, (rect.height() - side) / 2), image);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode, QIcon::State) override {
    return QPixmap::fromImage(drawTemplate(image_, std::min(size.width(), size.height())));
  }
  [[nodiscard]] QIconEngine* clone() const override { return new TemplateIconEngine(image_); }

private:
  TemplateImage image_;
};

}  // namespace

QImage drawTemplate(const TemplateImage& image, int side) {
  QImage drawn(side, side, QImage::Format_ARGB32_Premultiplied);
  drawn.fill(Qt::transparent);
  const double scale = templateScale(image, side);
  QPainter painter(&drawn);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(std::floor((side - image.size.width * scale) / 2),
                    std::floor((side - image.size.height * scale) / 2));
  for (const auto& shape : image.shapes) drawShape(painter, shape, scale);
  return drawn;
}

QIcon templateIcon(const TemplateImage& image) { return QIcon(new TemplateIconEngine(image)); }

}  // namespace tilwin::qt
