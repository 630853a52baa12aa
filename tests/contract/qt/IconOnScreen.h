#pragma once

#include <QImage>
#include <QRect>
#include <optional>

#include "tests/desktop/harness/Pixels.h"

namespace tilwin::contract {

/// The pixels of the screen that have the full colour of the status icon, and what surrounds them in their
/// panel; nothing if there are too few for an icon. Nothing else on the desktop may have that colour.
struct IconOnScreen {
  QRect area{};
  QImage picture{};  ///< the area and a margin of a few pixels

  [[nodiscard]] desktop::PixelPoint centre() const;
};

[[nodiscard]] std::optional<IconOnScreen> findIcon();

}  // namespace tilwin::contract
