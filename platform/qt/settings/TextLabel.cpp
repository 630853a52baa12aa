#include "platform/qt/settings/TextLabel.h"

#include <QFont>
#include <QPainter>
#include <QString>
#include <array>

#include "platform/qt/settings/Painting.h"

namespace tilwin::qt {
namespace {

struct ToneLook {
  double scale;
  QFont::Weight weight;
  QColor Theme::*colour;
};

/// In the order of `TextLabel::Tone`.
constexpr std::array<ToneLook, 5> toneLooks{{
    {1.0, QFont::Normal, &Theme::text},
    {1.7, QFont::Bold, &Theme::text},
    {1.0, QFont::DemiBold, &Theme::text},
    {1.0, QFont::Normal, &Theme::secondary},
    {1.0, QFont::Normal, &Theme::problem},
}};

constexpr int narrowestLabel = 48;

const ToneLook& lookOf(TextLabel::Tone tone) { return toneLooks.at(static_cast<std::size_t>(tone)); }

}  // namespace

TextLabel::TextLabel(Tone tone, QWidget* parent) : QLabel(parent), tone_(tone) {
  setTextFormat(Qt::PlainText);
  QFont look = font();
  if (look.pointSizeF() > 0) {
    look.setPointSizeF(look.pointSizeF() * lookOf(tone).scale);
  } else {
    look.setPixelSize(qRound(look.pixelSize() * lookOf(tone).scale));
  }
  look.setWeight(lookOf(tone).weight);
  setFont(look);
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

bool TextLabel::display(const std::string& text) {
  const QString wanted = QString::fromStdString(text);
  if (wanted == QLabel::text() && isHidden() == wanted.isEmpty()) return false;
  setText(wanted);
  setVisible(!wanted.isEmpty());
  updateGeometry();
  return true;
}

int TextLabel::lineWidth() const { return fontMetrics().horizontalAdvance(text()) + 2 + sideMargins(); }

int TextLabel::sideMargins() const { return contentsMargins().left() + contentsMargins().right(); }

QSize TextLabel::sizeHint() const { return {lineWidth(), fontMetrics().height()}; }

QSize TextLabel::minimumSizeHint() const { return {narrowestLabel, fontMetrics().height()}; }

int TextLabel::heightForWidth(int width) const {
  return WrappedText::height(text(), font(), width - sideMargins());
}

void TextLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const Theme theme = Theme::of(palette());
  const QColor colour = theme.*lookOf(tone_).colour;
  painter.setPen(isEnabled() ? colour : mixed(colour, theme.card, 0.5));
  if (alignment().testFlag(Qt::AlignRight) && lineWidth() <= width()) {
    painter.drawText(contentsRect(), Qt::AlignRight | Qt::AlignTop, text());
    return;
  }
  WrappedText::draw(painter, contentsRect(), text());
}

}  // namespace tilwin::qt
