#pragma once

#include <filesystem>

#include <QImage>

#include "core/geometry/Rect.h"
#include "tests/desktop/harness/XConnection.h"

namespace tilwin::desktop {

/// The content of the screen within `area`, clipped to the screen; the whole screen if not given. On a
/// composited screen, what the compositor painted last. Throws HarnessError if the server refuses.
QImage screenshot(XConnection& connection, const std::optional<Rect>& area = std::nullopt);

/// Writes it as PNG; throws HarnessError if the file cannot be written.
void saveScreenshot(XConnection& connection, const std::filesystem::path& file,
                    const std::optional<Rect>& area = std::nullopt);

/// The number of different colours in an image, counted up to a limit.
int colourCount(const QImage& image, int limit = 256);

}  // namespace tilwin::desktop
