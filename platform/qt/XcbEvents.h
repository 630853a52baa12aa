#pragma once

#include <QAbstractNativeEventFilter>
#include <functional>

struct xcb_connection_t;

namespace tilwin::qt {

/// Stands between Qt and the events of its own connection to an X server. A QGuiApplication on the platform
/// "xcb" must exist as long as this does.
class XcbEvents : public QAbstractNativeEventFilter {
public:
  /// Decides whether Qt handles an event, a xcb_generic_event_t.
  using Wanted = std::function<bool(const void* event)>;

  /// Qt's connection; null on another platform.
  [[nodiscard]] static xcb_connection_t* connection();

  explicit XcbEvents(Wanted wanted);
  XcbEvents(const XcbEvents&) = delete;
  XcbEvents& operator=(const XcbEvents&) = delete;
  ~XcbEvents() override;

  bool nativeEventFilter(const QByteArray& type, void* event, qintptr* result) override;

private:
  Wanted wanted_;
};

}  // namespace tilwin::qt
