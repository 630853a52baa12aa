#include "platform/qt/settings/TextField.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>

#include "platform/qt/settings/Painting.h"

namespace tilwin::qt {
namespace {

constexpr int besideText = 8;
constexpr int besideLens = 28;
constexpr int emptyingSize = 22;

/// A cross in a disc. It takes no focus: Escape in the field does the same.
class EmptyingButton final : public QAbstractButton {
public:
  explicit EmptyingButton(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
    setAttribute(Qt::WA_Hover);
    setAccessibleName(QStringLiteral("Clear"));
    resize(emptyingSize, emptyingSize);
  }

protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Theme theme = Theme::of(parentWidget()->parentWidget()->palette());
    const QPointF middle(width() / 2.0, height() / 2.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(underMouse() ? theme.secondary : mixed(theme.secondary, theme.control, 0.7));
    painter.drawEllipse(middle, 7, 7);
    painter.setPen(QPen(theme.control, 1.5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(middle + QPointF(-2.5, -2.5), middle + QPointF(2.5, 2.5));
    painter.drawLine(middle + QPointF(-2.5, 2.5), middle + QPointF(2.5, -2.5));
  }
};

void drawLens(QPainter& painter, const QRectF& body, const QColor& colour) {
  const QPointF middle(body.left() + 14, body.center().y() - 1);
  painter.setPen(QPen(colour, 1.5, Qt::SolidLine, Qt::RoundCap));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(middle, 4.5, 4.5);
  painter.drawLine(middle + QPointF(3.4, 3.4), middle + QPointF(6.5, 6.5));
}

}  // namespace

TextField::TextField(const FormTextField& field, const Report& report, QWidget* parent)
    : QLineEdit(parent), isSearch_(field.isSearch) {
  setObjectName(QString::fromStdString(field.id));
  setFrame(false);
  setAttribute(Qt::WA_MacShowFocusRect, false);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  clearPalette();
  const int left = metrics::ring + (isSearch_ ? besideLens : besideText) - 2;
  setTextMargins(left, metrics::ring, metrics::ring + (isSearch_ ? besideLens : besideText) - 2,
                 metrics::ring);
  if (isSearch_) {
    emptying_ = new EmptyingButton(this);
    connect(emptying_, &QAbstractButton::clicked, this, [this] { setText({}); });
  }
  connect(this, &QLineEdit::textChanged, this, [this, &report](const QString& text) {
    if (emptying_ != nullptr) emptying_->setVisible(!text.isEmpty());
    report(form::TextChanged{objectName().toStdString(), text.toStdString()});
  });
}

void TextField::clearPalette() {
  // The background is painted here, rounded.
  QPalette clear;
  clear.setColor(QPalette::Base, Qt::transparent);
  setPalette(clear);
}

void TextField::display(const FormTextField& field) {
  const QSignalBlocker silent(this);
  const QString wanted = QString::fromStdString(field.text);
  if (text() != wanted) {
    const int cursor = cursorPosition();
    const bool wasAtEnd = cursor == text().size();
    setText(wanted);
    setCursorPosition(wasAtEnd ? static_cast<int>(wanted.size())
                               : qMin(cursor, static_cast<int>(wanted.size())));
  }
  if (emptying_ != nullptr) emptying_->setVisible(!wanted.isEmpty());
  setPlaceholderText(QString::fromStdString(field.placeholder));
  setAccessibleName(QString::fromStdString(field.label));
}

QSize TextField::sizeHint() const { return {200, metrics::controlHeight}; }

QSize TextField::minimumSizeHint() const { return {80, metrics::controlHeight}; }

void TextField::paintEvent(QPaintEvent* event) {
  {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Theme theme = Theme::of(parentWidget()->palette());
    const QRectF body = bodyOf(rect());
    painter.setPen(QPen(theme.outline, 1));
    painter.setBrush(theme.isDark ? mixed(Qt::black, theme.card, 0.2) : theme.card);
    painter.drawRoundedRect(body.adjusted(0.5, 0.5, -0.5, -0.5), metrics::controlRadius,
                            metrics::controlRadius);
    if (hasFocus()) drawFocusRing(painter, body, metrics::controlRadius, theme);
    if (isSearch_) drawLens(painter, body, theme.secondary);
  }
  QLineEdit::paintEvent(event);
}

void TextField::keyPressEvent(QKeyEvent* event) {
  if (isSearch_ && event->key() == Qt::Key_Escape && !text().isEmpty()) return setText({});
  QLineEdit::keyPressEvent(event);
}

void TextField::resizeEvent(QResizeEvent* event) {
  QLineEdit::resizeEvent(event);
  if (emptying_ == nullptr) return;
  emptying_->move(width() - metrics::ring - 3 - emptyingSize, (height() - emptyingSize) / 2);
}

}  // namespace tilwin::qt
