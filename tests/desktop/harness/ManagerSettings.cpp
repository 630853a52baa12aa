#include "tests/desktop/harness/Manager.h"

namespace tilwin::desktop {

namespace {

/// As openbox ships, a window held to the screen's edge for 400 ms is taken to the next workspace.
constexpr const char* openboxRc = R"(<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <resistance><strength>0</strength><screen_edge_strength>0</screen_edge_strength></resistance>
  <focus><focusNew>yes</focusNew><followMouse>no</followMouse><focusLast>yes</focusLast></focus>
  <placement><policy>Smart</policy><center>yes</center><monitor>Primary</monitor></placement>
  <theme><name>Clearlooks</name><titleLayout>NLIMC</titleLayout><keepBorder>yes</keepBorder></theme>
  <desktops><number>2</number><popupTime>0</popupTime></desktops>
  <resize><drawContents>yes</drawContents><popupShow>Never</popupShow></resize>
  <keyboard>
    <keybind key="A-F4"><action name="Close"/></keybind>
    <keybind key="A-Tab"><action name="NextWindow"/></keybind>
    @tiling@
  </keyboard>
  <mouse>
    <dragThreshold>1</dragThreshold>
    <doubleClickTime>500</doubleClickTime>
    <screenEdgeWarpTime>0</screenEdgeWarpTime>
    <context name="Frame">
      <mousebind button="A-Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind>
      <mousebind button="A-Left" action="Drag"><action name="Move"/></mousebind>
      <mousebind button="A-Right" action="Drag"><action name="Resize"/></mousebind>
    </context>
    <context name="Titlebar">
      <mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind>
      <mousebind button="Left" action="Drag"><action name="Move"/></mousebind>
      <mousebind button="Left" action="DoubleClick"><action name="ToggleMaximize"/></mousebind>
    </context>
    <context name="Bottom BRCorner BLCorner TRCorner TLCorner Left Right Top">
      <mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind>
      <mousebind button="Left" action="Drag"><action name="Resize"/></mousebind>
    </context>
    <context name="Client">
      <mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind>
    </context>
    <context name="Maximize">
      <mousebind button="Left" action="Click"><action name="ToggleMaximize"/></mousebind>
    </context>
    <context name="Iconify"><mousebind button="Left" action="Click"><action name="Iconify"/></mousebind></context>
    <context name="Close"><mousebind button="Left" action="Click"><action name="Close"/></mousebind></context>
  </mouse>
</openbox_config>
)";

/// Openbox has no tiling of its own; these are the bindings its users write.
constexpr const char* openboxTiling = R"(<keybind key="W-Left">
      <action name="Unmaximize"/>
      <action name="MoveResizeTo"><x>0</x><y>0</y><width>50%</width><height>100%</height></action>
    </keybind>
    <keybind key="W-Right">
      <action name="Unmaximize"/>
      <action name="MoveResizeTo"><x>-0</x><y>0</y><width>50%</width><height>100%</height></action>
    </keybind>)";

/// Dragging a window against the screen's edge must not throw it to the next workspace either.
constexpr const char* xfwm4Channel = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfwm4" version="1.0">
  <property name="general" type="empty">
    <property name="tile_on_move" type="bool" value="@edges@"/>
    <property name="snap_to_border" type="bool" value="false"/>
    <property name="snap_to_windows" type="bool" value="false"/>
    <property name="wrap_windows" type="bool" value="false"/>
    <property name="wrap_workspaces" type="bool" value="false"/>
    <property name="workspace_count" type="int" value="2"/>
    @compositing@
  </property>
</channel>
)";

/// "override" makes the custom bindings the only ones.
constexpr const char* xfwm4Shortcuts = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-keyboard-shortcuts" version="1.0">
  <property name="xfwm4" type="empty">
    <property name="custom" type="empty">
      <property name="override" type="bool" value="true"/>
      <property name="&lt;Alt&gt;F4" type="string" value="close_window_key"/>
      <property name="&lt;Alt&gt;Tab" type="string" value="cycle_windows_key"/>
      <property name="Escape" type="string" value="cancel_key"/>
      @tiling@
    </property>
  </property>
</channel>
)";

constexpr const char* xfwm4Tiling =
    R"(<property name="&lt;Super&gt;Left" type="string" value="tile_left_key"/>
      <property name="&lt;Super&gt;Right" type="string" value="tile_right_key"/>)";

/// Of its default bindings, those on our combinations are the workspace switches.
constexpr const char* metacityKeyFile = R"([org/gnome/desktop/wm/preferences]
num-workspaces=2
mouse-button-modifier='<Alt>'

[org/gnome/desktop/wm/keybindings]
switch-to-workspace-left=@as []
switch-to-workspace-right=@as []
switch-to-workspace-up=@as []
switch-to-workspace-down=@as []
move-to-workspace-left=@as []
move-to-workspace-right=@as []
move-to-workspace-up=@as []
move-to-workspace-down=@as []

[org/gnome/metacity]
edge-tiling=@edges@
@compositing@

[org/gnome/metacity/keybindings]
@tiling@
)";

constexpr const char* metacityTiling =
    "toggle-tiled-left=['<Super>Left']\ntoggle-tiled-right=['<Super>Right']";
constexpr const char* metacityNoTiling = "toggle-tiled-left=@as []\ntoggle-tiled-right=@as []";

/// A border zone of 0 keeps edges from pulling at a window, Placement from putting it where no test asked.
constexpr const char* kwinRc = R"([Compositing]
Enabled=false

[Desktops]
Number=2

[Windows]
ElectricBorders=0
ElectricBorderMaximize=@edges@
ElectricBorderTiling=@edges@
BorderSnapZone=0
WindowSnapZone=0
CenterSnapZone=0
Placement=Centered

[org.kde.kdecoration2]
library=org.kde.breeze
theme=Breeze
)";

constexpr const char* kwinShortcuts = R"([kwin]
Window Quick Tile Left=@left@,Meta+Left,Quick Tile Window to the Left
Window Quick Tile Right=@right@,Meta+Right,Quick Tile Window to the Right
)";

const char* yesNo(bool value) { return value ? "true" : "false"; }

}  // namespace

std::string filledIn(std::string text, const std::string& blank, const std::string& value) {
  for (auto at = text.find(blank); at != std::string::npos; at = text.find(blank, at + value.size())) {
    text.replace(at, blank.size(), value);
  }
  return text;
}

void configureOpenbox(const PrivateHome& home, const ManagerSetup& setup) {
  std::string rc = openboxRc;
  rc = filledIn(rc, "@tiling@", setup.nativeTileKeys ? openboxTiling : "");
  home.write("config/openbox/rc.xml", rc);
}

void configureXfwm4(const PrivateHome& home, const ManagerSetup& setup) {
  std::string channel = xfwm4Channel;
  std::string compositing;
  if (setup.compositing) {
    compositing = R"(<property name="use_compositing" type="bool" value=")" +
                  std::string(yesNo(*setup.compositing)) + R"("/>)";
  }
  channel = filledIn(channel, "@compositing@", compositing);
  channel = filledIn(channel, "@edges@", yesNo(setup.edgeTiling));
  std::string shortcuts = xfwm4Shortcuts;
  shortcuts = filledIn(shortcuts, "@tiling@", setup.nativeTileKeys ? xfwm4Tiling : "");
  home.write("config/xfce4/xfconf/xfce-perchannel-xml/xfwm4.xml", channel);
  home.write("config/xfce4/xfconf/xfce-perchannel-xml/xfce4-keyboard-shortcuts.xml", shortcuts);
}

void configureMetacity(const PrivateHome& home, const ManagerSetup& setup) {
  std::string keys = metacityKeyFile;
  const bool given = setup.compositing.has_value();
  keys = filledIn(keys, "@compositing@",
                  given ? "compositing-manager=" + std::string(yesNo(*setup.compositing)) : std::string());
  keys = filledIn(keys, "@edges@", yesNo(setup.edgeTiling));
  keys = filledIn(keys, "@tiling@", setup.nativeTileKeys ? metacityTiling : metacityNoTiling);
  home.write("config/glib-2.0/settings/keyfile", keys);
}

void configureKwin(const PrivateHome& home, const ManagerSetup& setup) {
  home.write("config/kwinrc", filledIn(kwinRc, "@edges@", yesNo(setup.edgeTiling)));
  std::string shortcuts = kwinShortcuts;
  shortcuts = filledIn(shortcuts, "@left@", setup.nativeTileKeys ? "Meta+Left" : "none");
  shortcuts = filledIn(shortcuts, "@right@", setup.nativeTileKeys ? "Meta+Right" : "none");
  home.write("config/kglobalshortcutsrc", shortcuts);
}

}  // namespace tilwin::desktop
