#pragma once

#include <xcb/xcb.h>

#include <array>
#include <cstddef>
#include <string_view>

namespace tilwin::x11 {

/// The atoms that this program uses. Sources: EWMH; GTK and KDE for a window's desktop entry and for the size
/// of its invisible shadow; the compositors compton and picom for turning off a window's shadow.
enum class Atom : std::size_t {
  netActiveWindow,
  netClientList,
  netClientListStacking,
  netCurrentDesktop,
  netFrameExtents,
  netMoveResizeWindow,
  netSupported,
  netSupportingWmCheck,
  netWmDesktop,
  netWmMoveResize,
  netWmName,
  netWmPid,
  netWmState,
  netWmStateFullscreen,
  netWmStateHidden,
  netWmStateMaximizedHorz,
  netWmStateMaximizedVert,
  netWmStrut,
  netWmStrutPartial,
  netWmWindowType,
  netWmWindowTypeDesktop,
  netWmWindowTypeDnd,
  netWmWindowTypeDock,
  netWmWindowTypeNormal,
  netWorkarea,
  comptonShadow,
  gtkApplicationId,
  gtkFrameExtents,
  kdeNetWmDesktopFile,
  utf8String,
};

inline constexpr std::array<std::string_view, 30> atomNames{
    "_NET_ACTIVE_WINDOW",
    "_NET_CLIENT_LIST",
    "_NET_CLIENT_LIST_STACKING",
    "_NET_CURRENT_DESKTOP",
    "_NET_FRAME_EXTENTS",
    "_NET_MOVERESIZE_WINDOW",
    "_NET_SUPPORTED",
    "_NET_SUPPORTING_WM_CHECK",
    "_NET_WM_DESKTOP",
    "_NET_WM_MOVERESIZE",
    "_NET_WM_NAME",
    "_NET_WM_PID",
    "_NET_WM_STATE",
    "_NET_WM_STATE_FULLSCREEN",
    "_NET_WM_STATE_HIDDEN",
    "_NET_WM_STATE_MAXIMIZED_HORZ",
    "_NET_WM_STATE_MAXIMIZED_VERT",
    "_NET_WM_STRUT",
    "_NET_WM_STRUT_PARTIAL",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_WINDOW_TYPE_DESKTOP",
    "_NET_WM_WINDOW_TYPE_DND",
    "_NET_WM_WINDOW_TYPE_DOCK",
    "_NET_WM_WINDOW_TYPE_NORMAL",
    "_NET_WORKAREA",
    "_COMPTON_SHADOW",
    "_GTK_APPLICATION_ID",
    "_GTK_FRAME_EXTENTS",
    "_KDE_NET_WM_DESKTOP_FILE",
    "UTF8_STRING",
};

/// The server's numbers for `Atom`, read in one round trip. The number is XCB_ATOM_NONE if the request
/// failed.
class Atoms {
public:
  explicit Atoms(xcb_connection_t* connection);

  [[nodiscard]] xcb_atom_t operator[](Atom atom) const { return values_[static_cast<std::size_t>(atom)]; }

private:
  std::array<xcb_atom_t, atomNames.size()> values_{};
};

}  // namespace tilwin::x11
