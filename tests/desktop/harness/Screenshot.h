#pragma once

#include <QImage>
#include <QRect>
#include <filesystem>
#include <optional>

#include "core/geometry/Rect.h"
#include "tests/desktop/harness/XConnection.h"

namespace tilwin::desktop {

/// The content of the screen within `area`, clipped to the screen; the whole screen if not given. On a
/// composited screen, what the compositor painted last. Throws HarnessError if the server refuses.
QImage screenshot(XConnection& connection, const std::optional<Rect>& area = std::nullopt);

/// Writes it as PNG; throws HarnessError if the file cannot be written.
void saveScreenshot(XConnection& connection, const std::filesystem::path& file,
                    const std::optional<Rect>& area = std::nullopt);

/// The smallest area with all pixels of exactly this colour, 0xffrrggbb, and how many those are.
struct ColouredArea {
  QRect area{};
  int pixels = 0;
};
[[nodiscard]] ColouredArea areaOf(QRgb colour, const QImage& image);

/// The number of different colours in an image, counted up to a limit.
int colourCount(const QImage& image, int limit = 256);

}  // namespace tilwin::desktop
