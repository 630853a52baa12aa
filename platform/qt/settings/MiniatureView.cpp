#include "platform/qt/settings/MiniatureView.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <array>
#include <cmath>

#include "platform/qt/settings/Painting.h"

namespace tilwin::qt {
namespace {

/// How near to an edge counts as touching it.
constexpr double touchReach = 8;

struct MiniatureLook {
  int width;
  double bezel;
  double radius;
  double tileRadius;
};

/// In the order of `MiniatureView::Scale`.
constexpr std::array<MiniatureLook, 2> miniatureLooks{{{44, 1.5, 4, 1.5}, {232, 6, 9, 3}}};

const MiniatureLook& lookOf(MiniatureView::Scale scale) {
  return miniatureLooks.at(static_cast<std::size_t>(scale));
}

/// -1 near the first edge, 1 near the second, 0 elsewhere.
int edgeNear(double at, double first, double second) {
  const double toFirst = std::abs(at - first);
  const double toSecond = std::abs(at - second);
  if (std::min(toFirst, toSecond) > touchReach) return 0;
  return toFirst < toSecond ? -1 : 1;
}

}  // namespace

MiniatureView::MiniatureView(Scale scale, const Report& report, QWidget* parent)
    : QWidget(parent), scale_(scale), report_(report) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void MiniatureView::display(const FormPicture& picture) {
  if (picture == picture_) return;
  const bool changesSize = picture.aspectRatio != picture_.aspectRatio;
  picture_ = picture;
  setObjectName(QString::fromStdString(picture.id));
  setAccessibleName(QString::fromStdString(picture.label));
  setMouseTracking(!picture.id.empty());
  if (changesSize) updateGeometry();
  update();
}

QSize MiniatureView::sizeHint() const {
  const auto& look = lookOf(scale_);
  const double ratio = std::isfinite(picture_.aspectRatio) ? std::clamp(picture_.aspectRatio, 0.4, 4.0) : 1.6;
  // An upright display is drawn narrower, so that it is not too high.
  const double width = ratio >= 1 ? look.width : std::max(look.width * ratio * 0.9, look.width * 0.4);
  const double height = (width - 2 * look.bezel) / ratio + 2 * look.bezel;
  return {static_cast<int>(std::lround(width)), static_cast<int>(std::lround(height))};
}

QRectF MiniatureView::screen() const {
  const double bezel = lookOf(scale_).bezel;
  return QRectF(rect()).adjusted(bezel, bezel, -bezel, -bezel);
}

Point MiniatureView::fractionsAt(const QPointF& at) const {
  const QRectF area = screen();
  return {(at.x() - area.left()) / area.width(), (at.y() - area.top()) / area.height()};
}

QRectF MiniatureView::areaOf(const FormPicture::Tile& tile) const {
  const QRectF area = screen();
  return {area.left() + tile.rect.x * area.width(), area.top() + tile.rect.y * area.height(),
          tile.rect.width * area.width(), tile.rect.height * area.height()};
}

void MiniatureView::drawTile(QPainter& painter, const FormPicture::Tile& tile) const {
  const Theme theme = Theme::of(palette());
  const bool isLarge = scale_ == Scale::large;
  QColor fill = mixed(theme.text, theme.card, theme.isDark ? 0.34 : 0.22);
  if (tile.isHighlighted) fill = theme.accent;
  if (tile.isHighlighted && isLarge) fill.setAlphaF(0.82F);
  painter.setPen(isLarge && tile.isHighlighted ? QPen(theme.accent, 1.5) : QPen(Qt::NoPen));
  painter.setBrush(fill);
  const double inset = isLarge && tile.isHighlighted ? 0.75 : 0;
  painter.drawRoundedRect(areaOf(tile).adjusted(inset, inset, -inset, -inset), lookOf(scale_).tileRadius,
                          lookOf(scale_).tileRadius);
}

void MiniatureView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Theme theme = Theme::of(palette());
  const auto& look = lookOf(scale_);
  const QRectF body = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.setPen(QPen(theme.outline, 1));
  painter.setBrush(mixed(theme.text, theme.card, scale_ == Scale::large ? 0.14 : 0.06));
  painter.drawRoundedRect(body, look.radius, look.radius);
  QPainterPath glass;
  glass.addRoundedRect(screen(), look.radius - look.bezel / 2, look.radius - look.bezel / 2);
  painter.fillPath(glass, mixed(theme.accent, theme.card, theme.isDark ? 0.16 : 0.08));
  painter.setClipPath(glass);
  for (const bool isHighlighted : {false, true}) {
    for (const auto& tile : picture_.tiles) {
      if (tile.isHighlighted == isHighlighted) drawTile(painter, tile);
    }
  }
}

Qt::CursorShape MiniatureView::cursorAt(const QPointF& at) const {
  for (const auto& tile : picture_.tiles) {
    if (!tile.isHighlighted) continue;
    const QRectF area = areaOf(tile);
    if (!area.adjusted(-touchReach, -touchReach, touchReach, touchReach).contains(at)) continue;
    const int across = edgeNear(at.x(), area.left(), area.right());
    const int down = edgeNear(at.y(), area.top(), area.bottom());
    if (across == 0 && down == 0) return Qt::SizeAllCursor;
    if (down == 0) return Qt::SizeHorCursor;
    if (across == 0) return Qt::SizeVerCursor;
    return across == down ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
  }
  return Qt::ArrowCursor;
}

void MiniatureView::mousePressEvent(QMouseEvent* event) {
  if (picture_.id.empty() || event->button() != Qt::LeftButton) return event->ignore();
  isHeld_ = true;
  const QRectF area = screen();
  report_(form::PictureGrabbed{
      picture_.id, fractionsAt(event->position()), {touchReach / area.width(), touchReach / area.height()}});
}

void MiniatureView::mouseMoveEvent(QMouseEvent* event) {
  if (picture_.id.empty()) return event->ignore();
  if (isHeld_) return report_(form::PictureDragged{picture_.id, fractionsAt(event->position())});
  setCursor(cursorAt(event->position()));
}

void MiniatureView::mouseReleaseEvent(QMouseEvent* event) {
  if (!isHeld_ || event->button() != Qt::LeftButton) return event->ignore();
  isHeld_ = false;
  report_(form::PictureReleased{picture_.id});
}

}  // namespace tilwin::qt
