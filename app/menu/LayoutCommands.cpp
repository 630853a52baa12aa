#include "app/menu/LayoutCommands.h"

#include <algorithm>
#include <utility>

#include "app/layouts/LayoutRequests.h"

namespace tilwin {

void LayoutCommands::apply(const std::string& id) {
  const auto layouts = keeper_.layouts().userLayouts();
  const auto layout = std::ranges::find_if(layouts, [&](const Layout& each) { return each.id.text() == id; });
  if (layout == layouts.end()) return;
  if (const auto problem = LayoutRequests::place(keeper_, *layout)) dialogs_.tell(*problem);
}

void LayoutCommands::remove(const std::string& id) {
  if (const auto parsed = Uuid::parse(id)) keeper_.remove(*parsed);
}

void LayoutCommands::saveArrangement() {
  auto name = dialogs_.ask("Save this arrangement", "Name it, for example “Writing” or “Desk with monitor”.");
  if (name) keeper_.save(keeper_.capture(*std::move(name), false));
}

void LayoutCommands::describe() {
  const auto sentence =
      dialogs_.ask("Describe a layout",
                   "For example: Safari left two thirds, Notes right third. Tilwin reads the "
                   "words itself, nothing leaves your Mac.",
                   "Safari left, Notes right");
  if (!sentence) return;
  if (const auto problem = LayoutRequests::placeDescribed(keeper_, workspace_, *sentence))
    dialogs_.tell(*problem);
}

}  // namespace tilwin
