#pragma once

#include <filesystem>

#include <QImage>

#include "core/geometry/Rect.h"
#include "tests/desktop/harness/XConnection.h"

namespace tilwin::desktop {

/// What is on the screen in that part of the root window, cut to the screen; everything when not given. On
/// a composited screen this is what the compositor painted last. Throws HarnessError when the server refuses.
QImage screenshot(XConnection& connection, const std::optional<Rect>& area = std::nullopt);

/// Writes it as PNG; throws HarnessError when the file cannot be written.
void saveScreenshot(XConnection& connection, const std::filesystem::path& file,
                    const std::optional<Rect>& area = std::nullopt);

/// How many different colours an image has, counted up to a limit.
int colourCount(const QImage& image, int limit = 256);

}  // namespace tilwin::desktop
