#pragma once

#include <QColor>
#include <QPalette>

namespace tilwin::qt {

/// The colours of a form, made from a widget's palette.
struct Theme {
  QColor page;       ///< behind the cards
  QColor sidebar;    ///< behind the list of sections
  QColor card;       ///< behind the rows
  QColor line;       ///< around cards and between rows
  QColor text;       ///< titles
  QColor secondary;  ///< notes, captions, help
  QColor accent;     ///< what is on, chosen or focused
  QColor onAccent;   ///< on top of the accent
  QColor problem;    ///< what is wrong
  QColor control;    ///< buttons and fields
  QColor outline;    ///< around buttons, fields and switches
  QColor trough;     ///< switches that are off, and the rest of a slider
  bool isDark = false;

  [[nodiscard]] static Theme of(const QPalette& palette);
};

/// `share` of `top` over the rest of `bottom`.
[[nodiscard]] QColor mixed(const QColor& top, const QColor& bottom, double share);

/// Lengths in device-independent pixels, on a grid of 8.
namespace metrics {
inline constexpr int grid = 8;
inline constexpr int ring = 3;  ///< room for the focus ring around the body of a control
inline constexpr int controlHeight = 28 + 2 * ring;
inline constexpr double controlRadius = 6;
inline constexpr double cardRadius = 10;
inline constexpr int cardPadding = 2 * grid;
inline constexpr int pageMargin = 3 * grid;
inline constexpr int widestContent = 760;
}  // namespace metrics

}  // namespace tilwin::qt
