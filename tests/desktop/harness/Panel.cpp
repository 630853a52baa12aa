#include "tests/desktop/harness/Panel.h"

#include <string>
#include <utility>
#include <vector>

namespace tilwin::desktop {

namespace {

// A background begins with its corner radius.
constexpr const char* tint2Settings = R"(
rounded = 0
border_width = 0
background_color = @background@ 100
rounded = 4
border_width = 0
background_color = #808080 30

panel_items = @items@
panel_size = @size@
panel_position = bottom @alignment@ horizontal
panel_background_id = 1
panel_padding = 4 3 6
taskbar_padding = 0 0 4
task_background_id = 2
task_font_color = @text@ 100
task_maximum_size = 190 28
task_padding = 6 3 6
systray_padding = 4 4 4
systray_icon_size = @side@
systray_sort = ascending
time1_format = %H:%M
clock_font_color = @text@ 100
clock_padding = 6 0
wm_menu = 0
)";

constexpr const char* xfceSettings = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="@position@"/>
      <property name="length" type="uint" value="100"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="size" type="uint" value="32"/>
      <property name="background-style" type="uint" value="1"/>
      <property name="plugin-ids" type="array">@ids@</property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray"/>
    <property name="plugin-2" type="string" value="tasklist"/>
    <property name="plugin-3" type="string" value="separator">
      <property name="expand" type="bool" value="true"/>
      <property name="style" type="uint" value="0"/>
    </property>
    <property name="plugin-4" type="string" value="clock"/>
  </property>
</channel>
)";

using Values = std::vector<std::pair<std::string, std::string>>;

/// The text with a value in place of each name between two @.
std::string filled(std::string text, const Values& values) {
  for (const auto& [name, value] : values) {
    const std::string mark = "@" + name + "@";
    for (auto at = text.find(mark); at != std::string::npos; at = text.find(mark)) {
      text.replace(at, mark.size(), value);
    }
  }
  return text;
}

std::string tint2SettingsFor(const PanelOptions& options) {
  const bool isDark = options.look == PanelLook::dark;
  const std::string height = std::to_string(options.iconSide + 12);
  return filled(tint2Settings, {{"background", isDark ? "#202020" : "#f5f5f5"},
                                {"text", isDark ? "#ffffff" : "#000000"},
                                {"items", options.isPlain ? "S" : "TSC"},
                                {"size", (options.isPlain ? "300 " : "100% ") + height},
                                {"alignment", options.isPlain ? "left" : "center"},
                                {"side", std::to_string(options.iconSide)}});
}

std::string xfceSettingsFor(const PanelOptions& options) {
  const std::vector<int> plugins = options.isPlain ? std::vector{1} : std::vector{2, 3, 1, 4};
  std::string ids;
  for (const int plugin : plugins) ids += R"(<value type="int" value=")" + std::to_string(plugin) + R"("/>)";
  return filled(xfceSettings, {{"position", options.isPlain ? "p=6;x=0;y=0" : "p=8;x=0;y=0"}, {"ids", ids}});
}

void setXfce(Session& session, const std::string& property, const std::vector<std::string>& values) {
  std::vector<std::string> command{"xfconf-query", "-c", "xfce4-panel", "-n", "-p", property};
  command.insert(command.end(), values.begin(), values.end());
  session.start("xfconf-query", command).waitFor(answerTimeout);
}

}  // namespace

ChildProcess startPanel(Session& session, Panel panel, const PanelOptions& options) {
  if (panel == Panel::tint2) {
    session.home().write("tint2rc", tint2SettingsFor(options));
    return session.start("tint2", {"tint2", "-c", (session.home().path() / "tint2rc").string()});
  }
  session.home().write("config/xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml", xfceSettingsFor(options));
  // The service that keeps these settings reads the file only once, and the look may differ each time.
  const bool isDark = options.look == PanelLook::dark;
  const std::string grey = isDark ? "0.125" : "0.96";
  setXfce(session, "/panels/dark-mode", {"-t", "bool", "-s", isDark ? "true" : "false"});
  setXfce(session, "/panels/panel-1/background-rgba",
          {"-t", "double", "-s", grey, "-t", "double", "-s", grey, "-t", "double", "-s", grey, "-t", "double",
           "-s", "1"});
  return session.start("xfce4-panel", {"xfce4-panel", "--disable-wm-check"});
}

}  // namespace tilwin::desktop
