#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QString>
#include <QTimer>
#include <functional>

namespace tilwin::qt {

/// Follows whether a panel that shows StatusNotifierItems is there. Asks without waiting, so a panel that
/// does not answer holds nothing up. Source: StatusNotifierWatcher (freedesktop.org), by the names of KDE.
class NotifierHosts {
public:
  enum class Presence {
    unknown,  ///< nobody has answered yet
    absent,
    present,
  };

  /// `onChange` is called from the event loop whenever the presence or the watcher may have changed. Without
  /// a bus the panel is absent.
  NotifierHosts(QDBusConnection bus, std::function<void()> onChange);
  NotifierHosts(const NotifierHosts&) = delete;
  NotifierHosts& operator=(const NotifierHosts&) = delete;
  ~NotifierHosts() = default;

  [[nodiscard]] Presence presence() const { return presence_; }
  /// The unique name of the watcher that said so; another one knows nothing of our item.
  [[nodiscard]] const QString& watcher() const { return watcher_; }

private:
  void ask();
  void answered(const QDBusMessage& reply);
  void settle(Presence presence, const QString& watcher);

  QDBusConnection bus_;
  std::function<void()> onChange_;
  QDBusServiceWatcher names_;
  /// Combines several signs of a change into one question.
  QTimer soon_;
  Presence presence_ = Presence::unknown;
  QString watcher_;
  int lastQuestion_ = 0;
};

}  // namespace tilwin::qt
