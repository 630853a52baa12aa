#pragma once

#include <string>

#include "core/settings/CustomArea.h"
#include "core/snap/actions/SnapAction.h"
#include "platform/ports/FormModel.h"

namespace tilwin {

/// Small pictures of a display that show what a setting does. `aspect` is the width of the display divided by
/// its height.
struct Miniatures {
  /// Where the action puts a window.
  [[nodiscard]] static FormPicture action(SnapAction action, double aspect);
  /// Four tiles with this margin and this gap, in points, on a display small enough to see them.
  [[nodiscard]] static FormPicture spacing(double outer, double gap, double aspect);
  /// An area; the user can drag it if `id` is not empty.
  [[nodiscard]] static FormPicture area(const CustomArea& area, std::string id, double aspect);
};

}  // namespace tilwin
