#pragma once

#include <QIcon>
#include <QImage>
#include <QRgb>

#include "platform/ports/TemplateImage.h"

namespace tilwin::qt {

/// The colour of template images. A panel does not tell its background, so this one keeps a contrast of more
/// than 4:1 with black and with white (WCAG 2 asks 3:1 of a graphical object), and being a colour it also
/// stands out on grey.
inline constexpr QRgb templateColour = 0xff0f7ae5;

/// The image in a square of this many pixels, centred. Its straight edges fall on whole pixels, so they are
/// sharp at every size. An image that fits is drawn at 1, 1.5, 2, 2.5 ... times its size, because a line that
/// is not a multiple of half a pixel wide would look different from its neighbours; the rest is margin.
[[nodiscard]] QImage drawTemplate(const TemplateImage& image, int side);

/// An icon that draws the image anew for each size it is asked for.
[[nodiscard]] QIcon templateIcon(const TemplateImage& image);

}  // namespace tilwin::qt
