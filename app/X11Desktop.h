#pragma once

#include <memory>
#include <string>

#include "platform/qt/QtMainQueue.h"
#include "platform/qt/StopSignals.h"
#include "platform/qt/XcbEvents.h"
#include "platform/x11/displays/X11Displays.h"
#include "platform/x11/input/X11HotKeys.h"
#include "platform/x11/input/X11Pointer.h"
#include "platform/x11/overlay/X11Overlay.h"
#include "platform/x11/windows/X11DesktopReport.h"
#include "platform/x11/windows/X11Trust.h"
#include "platform/x11/windows/X11WindowProvider.h"
#include "platform/x11/windows/X11Workspace.h"
#include "platform/x11/wire/FloodGate.h"
#include "platform/x11/wire/ToolkitEvents.h"
#include "platform/x11/wire/X11Connection.h"
#include "platform/x11/wire/X11WindowManager.h"

namespace tilwin {

inline constexpr x11::AccentColour accent{0x35, 0x84, 0xe4};
inline constexpr auto desktopEntry = "tilwin";
inline constexpr auto serverHasGone = "Tilwin: the X server has gone";

/// The part of the composition root that knows X11: the adapters to a desktop, connected to Qt's main loop.
struct X11Desktop {
  X11Desktop(SystemLog& systemLog, x11::X11Connection& connection);
  X11Desktop(const X11Desktop&) = delete;
  X11Desktop& operator=(const X11Desktop&) = delete;
  ~X11Desktop();

  x11::X11Connection& x;
  SystemLog& log;
  qt::QtMainQueue queue{};
  qt::StopSignals stopSignals{queue};
  x11::FloodGate gate{x, queue};
  x11::ToolkitEvents toolkit{x, queue, qt::XcbEvents::connection()};
  qt::XcbEvents toolkitEvents{
      [this](const void* event) { return toolkit.wants(*static_cast<const xcb_generic_event_t*>(event)); }};
  x11::X11WindowManager manager{x, queue, log};
  x11::X11HotKeys hotKeys{x, queue};
  x11::X11Displays displays{x, queue};
  x11::HeldWindow held{x};
  x11::X11Pointer pointer{x, held, queue};
  x11::X11Overlay overlay{x, accent};
  x11::X11Trust trust{};
  std::shared_ptr<x11::X11WindowProvider> windows =
      std::make_shared<x11::X11WindowProvider>(x, displays, held, queue);
  x11::X11Workspace workspace{
      x, *windows, {.bundleIdentifier = std::string(desktopEntry), .localizedName = std::string("Tilwin")}};
  x11::X11DesktopReport report{x, *windows};
};

}  // namespace tilwin
