#include "platform/qt/settings/SwitchButton.h"

#include <QPainter>
#include <QSignalBlocker>

#include "platform/qt/settings/Painting.h"
#include "platform/qt/settings/TitledButton.h"

namespace tilwin::qt {
namespace {

constexpr QSize switchSize{38, 22};
constexpr int switchGap = 2 * metrics::grid;
constexpr int knobInset = 3;

void drawSwitch(QPainter& painter, const QRectF& body, bool isOn, bool isUnderPointer, const Theme& theme) {
  const double radius = body.height() / 2;
  QColor fill = isOn ? theme.accent : theme.trough;
  if (isUnderPointer) fill = mixed(theme.text, fill, 0.08);
  painter.setPen(Qt::NoPen);
  painter.setBrush(fill);
  painter.drawRoundedRect(body, radius, radius);
  const double knob = body.height() - 2 * knobInset;
  const double left = isOn ? body.right() - knobInset - knob : body.left() + knobInset;
  painter.setBrush(Qt::white);
  painter.drawEllipse(QRectF(left, body.top() + knobInset, knob, knob));
}

}  // namespace

SwitchButton::SwitchButton(const FormToggle& toggle, const Report& report, QWidget* parent)
    : QCheckBox(parent) {
  setObjectName(QString::fromStdString(toggle.id));
  setAttribute(Qt::WA_Hover);
  setFocusPolicy(Qt::StrongFocus);
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
  connect(this, &QCheckBox::toggled, this, [this, &report](bool isOn) {
    report(form::ToggleChanged{objectName().toStdString(), isOn});
  });
}

void SwitchButton::display(const FormToggle& toggle) {
  const QSignalBlocker silent(this);
  const QString title = QString::fromStdString(toggle.title);
  if (title_ != title) {
    title_ = title;
    setAccessibleName(title);
    updateGeometry();
    update();
  }
  setChecked(toggle.isOn);
}

int SwitchButton::titleWidth(int width) {
  return width - switchSize.width() - 2 * metrics::ring - switchGap - metrics::ring;
}

QSize SwitchButton::sizeHint() const {
  const int title =
      title_.isEmpty() ? 0 : fontMetrics().horizontalAdvance(title_) + 2 + switchGap + metrics::ring;
  return {title + switchSize.width() + 2 * metrics::ring, switchSize.height() + 2 * metrics::ring};
}

QSize SwitchButton::minimumSizeHint() const {
  return {switchSize.width() + 2 * metrics::ring, sizeHint().height()};
}

int SwitchButton::heightForWidth(int width) const {
  if (title_.isEmpty()) return sizeHint().height();
  return qMax(sizeHint().height(), WrappedText::height(title_, font(), titleWidth(width)) + metrics::grid);
}

void SwitchButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Theme theme = Theme::of(palette());
  const int room = titleWidth(width());
  const int lines = WrappedText::height(title_, font(), room);
  painter.setPen(theme.text);
  WrappedText::draw(painter, {metrics::ring, (height() - lines) / 2, room, lines}, title_);
  const QRectF body(width() - switchSize.width() - metrics::ring, (height() - switchSize.height()) / 2.0,
                    switchSize.width(), switchSize.height());
  drawSwitch(painter, body, isChecked(), underMouse(), theme);
  if (hasFocus()) drawFocusRing(painter, body, body.height() / 2, theme);
}

void SwitchButton::keyPressEvent(QKeyEvent* event) {
  if (!pressByReturn(*this, *event)) QCheckBox::keyPressEvent(event);
}

}  // namespace tilwin::qt
