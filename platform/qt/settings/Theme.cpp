#include "platform/qt/settings/Theme.h"

namespace tilwin::qt {

QColor mixed(const QColor& top, const QColor& bottom, double share) {
  const auto channel = [&](float a, float b) {
    return static_cast<float>(static_cast<double>(a) * share + static_cast<double>(b) * (1 - share));
  };
  return QColor::fromRgbF(channel(top.redF(), bottom.redF()), channel(top.greenF(), bottom.greenF()),
                          channel(top.blueF(), bottom.blueF()));
}

Theme Theme::of(const QPalette& palette) {
  const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
  const QColor page = palette.color(QPalette::Active, QPalette::Window);
  const bool isDark = page.lightness() < text.lightness();
  Theme theme;
  theme.isDark = isDark;
  theme.page = page;
  theme.text = text;
  theme.sidebar = isDark ? mixed(Qt::black, page, 0.18) : mixed(text, page, 0.045);
  theme.card = isDark ? mixed(Qt::white, page, 0.06) : palette.color(QPalette::Active, QPalette::Base);
  theme.line = mixed(text, theme.card, isDark ? 0.13 : 0.12);
  theme.secondary = mixed(text, theme.card, isDark ? 0.68 : 0.64);
  theme.accent = palette.color(QPalette::Active, QPalette::Highlight);
  theme.onAccent = palette.color(QPalette::Active, QPalette::HighlightedText);
  theme.problem = isDark ? QColor(0xff, 0x93, 0x85) : QColor(0xb4, 0x23, 0x18);
  theme.control = isDark ? mixed(Qt::white, theme.card, 0.07) : mixed(text, theme.card, 0.02);
  theme.outline = mixed(text, theme.card, isDark ? 0.26 : 0.24);
  theme.trough = mixed(text, theme.card, isDark ? 0.3 : 0.24);
  return theme;
}

}  // namespace tilwin::qt
