#include "tests/desktop/harness/StatusIcon.h"

namespace tilwin::desktop {

namespace {

constexpr const char* tint2Settings = R"(
# A background begins with its corner radius.
rounded = 0
border_width = 0
background_color = #202020 100
rounded = 4
border_width = 0
background_color = #ffffff 20

panel_items = TSC
panel_size = 100% 34
panel_position = bottom center horizontal
panel_background_id = 1
panel_padding = 4 3 6
taskbar_padding = 0 0 4
task_background_id = 2
task_maximum_size = 190 28
task_padding = 6 3 6
systray_padding = 4 4 4
systray_icon_size = 22
time1_format = %H:%M
clock_font_color = #ffffff 100
clock_padding = 6 0
)";

constexpr const char* xfceSettings = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="dark-mode" type="bool" value="true"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=8;x=0;y=0"/>
      <property name="length" type="uint" value="100"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="size" type="uint" value="32"/>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
        <value type="int" value="2"/>
        <value type="int" value="3"/>
        <value type="int" value="4"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="tasklist"/>
    <property name="plugin-2" type="string" value="separator">
      <property name="expand" type="bool" value="true"/>
      <property name="style" type="uint" value="0"/>
    </property>
    <property name="plugin-3" type="string" value="systray"/>
    <property name="plugin-4" type="string" value="clock"/>
  </property>
</channel>
)";

}  // namespace

ChildProcess startPanel(Session& session, Panel panel) {
  if (panel == Panel::tint2) {
    session.home().write("tint2rc", tint2Settings);
    return session.start("tint2", {"tint2", "-c", (session.home().path() / "tint2rc").string()});
  }
  // The service that keeps these settings reads the file when the panel first asks for them.
  session.home().write("config/xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml", xfceSettings);
  return session.start("xfce4-panel", {"xfce4-panel", "--disable-wm-check"});
}

}  // namespace tilwin::desktop
