#include <string>

#include "tests/desktop/harness/Manager.h"

namespace tilwin::desktop {

namespace {

constexpr const char* i3Config = R"(# i3 config file (v4)
font pango:DejaVu Sans Mono 10
floating_modifier Mod1
focus_follows_mouse no
mouse_warping none
default_border normal 2
default_floating_border normal 2
)";
constexpr const char* i3Bar = "bar {\n  position bottom\n}\n";
constexpr const char* i3Floats = "for_window [class=\".*\"] floating enable\n";

constexpr const char* herbstluftwmAutostart = R"(#!/bin/sh
herbstclient keyunbind --all
herbstclient mouseunbind --all
herbstclient mousebind Mod1-Button1 move
herbstclient mousebind Mod1-Button3 resize
herbstclient rename default 1
herbstclient add 2
herbstclient set focus_follows_mouse 0
herbstclient set raise_on_click 1
herbstclient set snap_distance 0
herbstclient set mouse_recenter_gap 0
herbstclient set focus_stealing_prevention 0
herbstclient set swap_monitors_to_get_tag 0
herbstclient set frame_gap 0
herbstclient set frame_border_width 0
herbstclient set window_gap 0
herbstclient attr theme.title_height 15
herbstclient attr theme.padding_top 4
herbstclient attr theme.border_width 3
herbstclient unrule --all
herbstclient rule focus=on @floats@
herbstclient rule windowtype='_NET_WM_WINDOW_TYPE_DOCK' manage=off
herbstclient unlock
: >"$HOME/@ready@"
)";

/// Only what is not as we want it; the other keys are unbound by leaving the defaults' file out.
constexpr const char* windowMaker = R"({
  ModifierKey = Mod1;
  FocusMode = manual;
  OpaqueMove = YES;
  OpaqueResize = YES;
  MoveDisplay = none;
  ResizeDisplay = none;
  EdgeResistance = 0;
  WindowSnapping = NO;
  DoubleClickTime = 250;
  DisableDock = YES;
  DisableClip = YES;
  DisableDrawers = YES;
  DisableMiniwindows = YES;
  DisableAnimations = YES;
  DisableSound = YES;
  DontLinkWorkspaces = YES;
  SaveSessionOnExit = NO;
  AutoFocus = YES;
  WindowPlacement = auto;
  WindowPlaceOrigin = (64, 64);
  NextWorkspaceKey = None;
  PrevWorkspaceKey = None;
  NextWorkspaceLayerKey = None;
  PrevWorkspaceLayerKey = None;
  MoveToNextWorkspaceKey = None;
  MoveToPrevWorkspaceKey = None;
})";
constexpr const char* windowMakerAttributes = R"({"*" = {NoAppIcon = Yes;};})";

constexpr const char* windowMakerScript = R"(#!/bin/sh
: >"$HOME/@ready@"
)";

constexpr const char* awesomeRc = R"(local gears = require("gears")
local awful = require("awful")
require("awful.autofocus")
local wibox = require("wibox")
local beautiful = require("beautiful")
beautiful.init(gears.filesystem.get_themes_dir() .. "default/theme.lua")
awful.mouse.snap.edge_enabled = false
awful.mouse.snap.client_enabled = false
awful.layout.layouts = { @layout@ }
awful.screen.connect_for_each_screen(function(s)
  awful.tag({ "1", "2" }, s, awful.layout.layouts[1])
  @bar@
end)
root.keys({})
local function activate(c) c:emit_signal("request::activate", "mouse_click", { raise = true }) end
local function move(c) activate(c); awful.mouse.client.move(c) end
local buttons = gears.table.join(
  awful.button({}, 1, activate),
  awful.button({ "Mod1" }, 1, move))
awful.rules.rules = {
  { rule = {}, properties = {
      border_width = 1, focus = awful.client.focus.filter, raise = true, buttons = buttons,
      screen = awful.screen.preferred, size_hints_honor = true } },
  { rule_any = { type = { "normal", "dialog" } }, properties = { titlebars_enabled = true } },
}
client.connect_signal("request::titlebars", function(c)
  local drag = awful.button({}, 1, function() move(c) end)
  awful.titlebar(c):setup({
    { widget = awful.titlebar.widget.titlewidget(c) },
    buttons = gears.table.join(drag), layout = wibox.layout.flex.horizontal })
end)
)";

constexpr const char* awesomeBar = R"(awful.wibar({ position = "bottom", screen = s, height = 30 }))";

constexpr const char* bspwmRc = R"(#!/bin/sh
bspc monitor -d I II
bspc config border_width 2
bspc config window_gap 0
bspc config pointer_modifier mod1
bspc config pointer_action1 move
bspc config pointer_action3 resize_corner
bspc config click_to_focus button1
bspc config focus_follows_pointer false
@floats@
: >"$HOME/@ready@"
)";

}  // namespace

void configureI3(const PrivateHome& home, const ManagerSetup& setup) {
  home.write("config/i3/config",
             std::string(i3Config) + (setup.tilesAll ? "" : i3Floats) + (setup.ownBar ? i3Bar : ""));
}

void configureHerbstluftwm(const PrivateHome& home, const ManagerSetup& setup) {
  home.writeScript("config/herbstluftwm/autostart",
                   filledIn(filledIn(herbstluftwmAutostart, "@floats@", setup.tilesAll ? "" : "floating=on"),
                            "@ready@", managerReady));
}

void configureWindowMaker(const PrivateHome& home, const ManagerSetup&) {
  home.write("GNUstep/Defaults/WindowMaker", windowMaker);
  home.write("GNUstep/Defaults/WMWindowAttributes", windowMakerAttributes);
  home.writeScript("GNUstep/Library/WindowMaker/autostart",
                   filledIn(windowMakerScript, "@ready@", managerReady));
}

void configureAwesome(const PrivateHome& home, const ManagerSetup& setup) {
  const std::string layout = setup.tilesAll ? "awful.layout.suit.tile" : "awful.layout.suit.floating";
  const std::string rc = filledIn(awesomeRc, "@bar@", setup.ownBar ? awesomeBar : "");
  home.write("config/awesome/rc.lua", filledIn(rc, "@layout@", layout));
}

void configureBspwm(const PrivateHome& home, const ManagerSetup& setup) {
  home.writeScript(
      "config/bspwm/bspwmrc",
      filledIn(filledIn(bspwmRc, "@floats@", setup.tilesAll ? "" : "bspc rule -a '*' state=floating"),
               "@ready@", managerReady));
}

}  // namespace tilwin::desktop
