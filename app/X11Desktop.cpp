#include "app/X11Desktop.h"

namespace tilwin {

X11Desktop::X11Desktop(SystemLog& systemLog, x11::X11Connection& connection) : x(connection), log(systemLog) {
  queue.watch(x.fileDescriptor(), [this] { x.dispatch(); });
  queue.beforeEachSleep([this] { return x.dispatchQueued(); });
  queue.onDisplayLost([this] { log.write(serverHasGone); });
  x.onLost([this] { queue.loseDisplay(); });
  manager.onStart([this] { hotKeys.tellOfChange(); });
}

X11Desktop::~X11Desktop() { x.onLost(nullptr); }

}  // namespace tilwin
