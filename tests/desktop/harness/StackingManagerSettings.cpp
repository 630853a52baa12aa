#include <array>
#include <string>

#include "tests/desktop/harness/Manager.h"

namespace tilwin::desktop {

namespace {

/// Without the sticky edges, and without a menu for the Super key, which would swallow combinations with it.
constexpr const char* icewmPreferences = R"(ShowTaskBar=@bar@
SnapMove=0
EdgeResistance=0
EdgeSwitch=0
ShowMoveSizeStatus=0
ClickToFocus=1
RaiseOnFocus=0
RaiseOnClickClient=1
WorkspaceNames=" 1 ", " 2 "
Win95Keys=0
)";

/// Its own keys on our combinations.
constexpr std::array icewmKeys{
    "KeySysShowDesktop",   "KeySysWorkspace1",           "KeySysWorkspace2",    "KeySysWorkspace3",
    "KeySysWorkspace4",    "KeySysWorkspace11TakeWin",   "KeySysWorkspace12",   "KeySysWorkspace12TakeWin",
    "KeySysWorkspaceLast", "KeySysWorkspaceLastTakeWin", "KeySysWorkspaceNext", "KeySysWorkspaceNextTakeWin",
    "KeySysWorkspacePrev", "KeySysWorkspacePrevTakeWin"};

constexpr const char* fluxboxInit = R"(session.screen0.toolbar.visible: @bar@
session.screen0.edgeSnapThreshold: 0
session.screen0.edgeResizeSnapThreshold: 0
session.screen0.workspacewarping: false
session.screen0.showwindowposition: false
session.screen0.opaqueMove: true
session.screen0.focusModel: ClickToFocus
session.screen0.windowPlacement: RowSmartPlacement
session.screen0.workspaces: 2
session.doubleClickInterval: 250
session.keyFile: @home@/.fluxbox/keys
session.menuFile: @home@/.fluxbox/menu
)";

constexpr const char* fluxboxKeys = R"(OnTitlebar Mouse1 :MacroCmd {Focus} {Raise}
OnTitlebar Move1 :StartMoving
OnTitlebar Double Mouse1 :Maximize
OnWindow Mod1 Mouse1 :MacroCmd {Raise} {Focus} {StartMoving}
OnWindowBorder Move1 :StartResizing NearestEdge
OnLeftGrip Move1 :StartResizing bottomleft
OnRightGrip Move1 :StartResizing bottomright
Mod1 F4 :Close
)";

constexpr const char* jwmRc = R"(<?xml version="1.0"?>
<JWM>
  <Desktops width="2" height="1"/>
  <DoubleClickSpeed>250</DoubleClickSpeed>
  <FocusModel>click</FocusModel>
  <SnapMode distance="0">none</SnapMode>
  <MoveMode coordinates="off" delay="60000" maximize="off">opaque</MoveMode>
  <ResizeMode coordinates="off">opaque</ResizeMode>
  @bar@
  <Key key="Escape">escape</Key>
  <Key mask="A" key="F4">close</Key>
  <Mouse context="title" button="1">move</Mouse>
  <Mouse context="title" button="11">maximize</Mouse>
  <Mouse context="icon" button="1">window</Mouse>
  <Mouse context="border" button="1">resize</Mouse>
  <Mouse context="close" button="-1">close</Mouse>
  <Mouse context="maximize" button="-1">maximize</Mouse>
  <Mouse context="minimize" button="-1">minimize</Mouse>
</JWM>
)";

constexpr const char* jwmTray = R"(<Tray x="0" y="-1" height="32"><TaskList/><Clock/></Tray>)";

/// Of its default bindings, those on our combinations are the workspace switches, a terminal and the bare
/// desktop.
constexpr const char* marcoKeyFile = R"([org/mate/marco/general]
num-workspaces=2
mouse-button-modifier='<Alt>'
compositing-manager=false
allow-tiling=@edges@
allow-top-tiling=@edges@

[org/mate/marco/global-keybindings]
switch-to-workspace-left='disabled'
switch-to-workspace-right='disabled'
switch-to-workspace-up='disabled'
switch-to-workspace-down='disabled'
run-command-terminal='disabled'
show-desktop='disabled'

[org/mate/marco/window-keybindings]
move-to-workspace-left='disabled'
move-to-workspace-right='disabled'
move-to-workspace-up='disabled'
move-to-workspace-down='disabled'
move-to-center='disabled'
)";

}  // namespace

void configureIcewm(const PrivateHome& home, const ManagerSetup& setup) {
  std::string preferences = filledIn(icewmPreferences, "@bar@", setup.ownBar ? "1" : "0");
  for (const char* key : icewmKeys) preferences += std::string(key) + "=\"\"\n";
  home.write(".icewm/preferences", preferences);
  home.write(".icewm/keys", "");
  home.write(".icewm/startup", "");
}

void configureFluxbox(const PrivateHome& home, const ManagerSetup& setup) {
  const std::string init = filledIn(fluxboxInit, "@bar@", setup.ownBar ? "true" : "false");
  home.write(".fluxbox/init", filledIn(init, "@home@", home.path()));
  home.write(".fluxbox/keys", fluxboxKeys);
  home.write(".fluxbox/menu", "[begin] (Menu)\n[exit] (Exit)\n[end]\n");
}

void configureJwm(const PrivateHome& home, const ManagerSetup& setup) {
  home.write(".jwmrc", filledIn(jwmRc, "@bar@", setup.ownBar ? jwmTray : ""));
}

void configureMarco(const PrivateHome& home, const ManagerSetup& setup) {
  home.write("config/glib-2.0/settings/keyfile",
             filledIn(marcoKeyFile, "@edges@", setup.edgeTiling ? "true" : "false"));
}

}  // namespace tilwin::desktop
