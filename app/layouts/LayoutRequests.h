#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "app/layouts/LayoutKeeper.h"
#include "platform/ports/Dialogs.h"
#include "platform/ports/Workspace.h"

namespace tilwin {

/// Layouts that the user asks for, from the menu or by a command: places their windows, and says in words
/// what was not possible.
struct LayoutRequests {
  /// Nothing to say if all windows of the layout are open.
  [[nodiscard]] static std::optional<DialogText> place(LayoutKeeper& keeper, const Layout& layout);
  /// Places the windows that a sentence names, among those of the running programs.
  [[nodiscard]] static std::optional<DialogText> placeDescribed(LayoutKeeper& keeper, Workspace& workspace,
                                                                std::string_view sentence);
  /// The layout that a sentence describes; it is placed and not saved.
  [[nodiscard]] static Layout transientLayout(std::string_view sentence, std::vector<LayoutSlot> slots,
                                              Date now);
};

}  // namespace tilwin
