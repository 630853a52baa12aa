#include "tests/contract/qt/Panels.h"

#include <string>

#include "tests/contract/qt/QtDesktop.h"

namespace tilwin::contract {
namespace {

constexpr const char* tint2Settings = R"(
rounded = 0
border_width = 0
panel_items = S
panel_size = 300 32
panel_position = bottom left horizontal
panel_background_id = 1
panel_padding = 8 4 4
systray_icon_size = 22
systray_sort = ascending
wm_menu = 0
)";

std::string colourOf(PanelLook look) { return look == PanelLook::light ? "#f5f5f5" : "#202020"; }

}  // namespace

desktop::ChildProcess startTint2(PanelLook look) {
  auto& session = qtDesktop();
  // A background begins with its corner radius and border.
  std::string settings = tint2Settings;
  settings.insert(settings.find("panel_items"), "background_color = " + colourOf(look) + " 100\n");
  session.home().write("tint2rc", settings);
  return session.start("tint2", {"tint2", "-c", (session.home().path() / "tint2rc").string()});
}

}  // namespace tilwin::contract
