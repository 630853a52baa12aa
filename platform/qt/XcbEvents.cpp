#include "platform/qt/XcbEvents.h"

#include <QByteArray>
#include <QGuiApplication>
#include <utility>

namespace tilwin::qt {

xcb_connection_t* XcbEvents::connection() {
  const auto* native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return native == nullptr ? nullptr : native->connection();
}

XcbEvents::XcbEvents(Wanted wanted) : wanted_(std::move(wanted)) { qGuiApp->installNativeEventFilter(this); }

XcbEvents::~XcbEvents() { qGuiApp->removeNativeEventFilter(this); }

bool XcbEvents::nativeEventFilter(const QByteArray& type, void* event, qintptr* /*result*/) {
  return type == "xcb_generic_event_t" && !wanted_(event);
}

}  // namespace tilwin::qt
