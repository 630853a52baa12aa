// The composition root: the only place that knows which desktop the program is built for.

#include <QCoreApplication>
#include <cstdio>
#include <iostream>
#include <memory>
#include <span>

#include "app/AppDelegate.h"
#include "app/CommandLine.h"
#include "platform/qt/QtMainQueue.h"
#include "platform/qt/QtSystemLog.h"
#include "platform/qt/QtUserDefaults.h"
#include "platform/qt/StopSignals.h"
#include "platform/qt/XdgBundle.h"
#include "platform/x11/displays/X11Displays.h"
#include "platform/x11/input/X11HotKeys.h"
#include "platform/x11/input/X11Pointer.h"
#include "platform/x11/overlay/X11Overlay.h"
#include "platform/x11/windows/X11Trust.h"
#include "platform/x11/windows/X11WindowProvider.h"
#include "platform/x11/wire/X11Connection.h"

namespace {

constexpr tilwin::x11::AccentColour accent{0x35, 0x84, 0xe4};

int runOnDesktop(tilwin::Bundle& bundle) {
  using namespace tilwin;
  qt::QtSystemLog log;
  qt::QtMainQueue queue;
  const qt::StopSignals stopSignals(queue);
  x11::X11Connection x(log);
  x11::X11HotKeys hotKeys(x, queue, log);
  qt::QtUserDefaults userDefaults(log);
  x11::X11Displays displays(x, queue);
  x11::HeldWindow held(x);
  x11::X11Pointer pointer(x, held, queue);
  x11::X11Overlay overlay(x, accent);
  x11::X11Trust trust;
  const auto windows = std::make_shared<x11::X11WindowProvider>(x, displays, held, queue);
  Platform platform{queue, log, hotKeys, userDefaults, windows, pointer, overlay, trust, displays, bundle};

  queue.watch(x.fileDescriptor(), [&x] { x.dispatch(); });
  queue.beforeEachSleep([&x] { x.dispatchQueued(); });
  x.onLost([&] {
    log.write("Tilwin: the X server has gone");
    queue.stop(0);
  });

  AppDelegate delegate(platform);
  delegate.start();
  return queue.run();
}

}  // namespace

int main(int argc, char** argv) {
  tilwin::qt::XdgBundle bundle;
  const std::span arguments(argv, static_cast<std::size_t>(argc));
  if (const auto status = tilwin::CommandLine::run(arguments.subspan(1), bundle, std::cout)) return *status;
  const QCoreApplication application(argc, argv);
  try {
    return runOnDesktop(bundle);
  } catch (const tilwin::x11::X11Unavailable& reason) {
    std::fprintf(stderr, "Tilwin: %s\n", reason.what());
    return 1;
  }
}
