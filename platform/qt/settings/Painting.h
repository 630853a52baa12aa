#pragma once

#include <QFont>
#include <QPainter>
#include <QRectF>
#include <QString>

#include "platform/qt/settings/Theme.h"

namespace tilwin::qt {

/// How a control stands under the user's hand.
struct ControlState {
  bool isEnabled = true;
  bool isUnderPointer = false;
  bool isDown = false;
  bool hasFocus = false;
};

/// The part of a control inside the room for its focus ring.
[[nodiscard]] QRectF bodyOf(const QRect& control);

/// The focus ring around the body of a control.
void drawFocusRing(QPainter& painter, const QRectF& body, double radius, const Theme& theme);

/// The background of a button, with its focus ring.
void drawButtonBody(QPainter& painter, const QRectF& body, const ControlState& state, const Theme& theme);

/// Plain text broken into lines: at words, and within a word that is wider than a line.
class WrappedText {
public:
  /// The height of the text in lines of this width.
  [[nodiscard]] static int height(const QString& text, const QFont& font, int width);
  /// Draws it from the top left corner of `area` in the painter's font and pen.
  static void draw(QPainter& painter, const QRect& area, const QString& text);
};

}  // namespace tilwin::qt
