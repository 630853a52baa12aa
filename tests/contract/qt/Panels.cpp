#include "tests/contract/qt/Panels.h"

#include <string>
#include <vector>

#include "tests/contract/qt/QtDesktop.h"

namespace tilwin::contract {
namespace {

constexpr const char* tint2Settings = R"(
rounded = 0
border_width = 0
panel_items = S
panel_position = bottom left horizontal
panel_background_id = 1
panel_padding = 8 4 4
systray_sort = ascending
wm_menu = 0
)";

constexpr const char* xfceSettings = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="length" type="uint" value="100"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="size" type="uint" value="30"/>
      <property name="background-style" type="uint" value="1"/>
      <property name="background-rgba" type="array">
        <value type="double" value="0.5"/>
        <value type="double" value="0.5"/>
        <value type="double" value="0.5"/>
        <value type="double" value="1"/>
      </property>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray"/>
  </property>
</channel>
)";

void setXfce(const std::string& property, const std::vector<std::string>& values) {
  std::vector<std::string> command{"xfconf-query", "-c", "xfce4-panel", "-n", "-p", property};
  command.insert(command.end(), values.begin(), values.end());
  qtDesktop().start("xfconf-query", command).waitFor(desktop::answerTimeout);
}

std::string colourOf(PanelLook look) { return look == PanelLook::light ? "#f5f5f5" : "#202020"; }

}  // namespace

desktop::ChildProcess startTint2(PanelLook look, int iconSide) {
  auto& session = qtDesktop();
  // A background begins with its corner radius and border.
  std::string settings = tint2Settings;
  settings.insert(settings.find("panel_items"), "background_color = " + colourOf(look) + " 100\n");
  settings += "systray_icon_size = " + std::to_string(iconSide) + "\n";
  settings += "panel_size = 300 " + std::to_string(iconSide + 10) + "\n";
  session.home().write("tint2rc", settings);
  return session.start("tint2", {"tint2", "-c", (session.home().path() / "tint2rc").string()});
}

desktop::ChildProcess startXfcePanel(PanelLook look) {
  auto& session = qtDesktop();
  session.home().write("config/xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml", xfceSettings);
  // The service that keeps these settings reads the file only once.
  const bool isDark = look == PanelLook::dark;
  const std::string grey = isDark ? "0.125" : "0.96";
  setXfce("/panels/dark-mode", {"-t", "bool", "-s", isDark ? "true" : "false"});
  setXfce("/panels/panel-1/background-rgba", {"-t", "double", "-s", grey, "-t", "double", "-s", grey, "-t",
                                              "double", "-s", grey, "-t", "double", "-s", "1"});
  return session.start("xfce4-panel", {"xfce4-panel", "--disable-wm-check"});
}

}  // namespace tilwin::contract
