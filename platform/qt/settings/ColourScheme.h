#pragma once

#include <QObject>
#include <QPalette>
#include <memory>
#include <optional>

class QDBusPendingCall;

namespace tilwin::qt {

/// Gives the application light or dark colours, as the desktop asks for. The first of these that knows
/// decides: the palette of Qt's platform theme, if it is dark already; the desktop portal; GTK's settings.
/// Sources: org.freedesktop.portal.Settings, key "color-scheme" of "org.freedesktop.appearance"; GTK 3,
/// settings.ini. The application gets its own colours back when this is destroyed.
class ColourScheme {
public:
  enum class Wish { none, light, dark };

  ColourScheme();
  ColourScheme(const ColourScheme&) = delete;
  ColourScheme& operator=(const ColourScheme&) = delete;
  ~ColourScheme();

  /// Asks the portal, without waiting.
  void ask();
  /// Gives the application its colours. Waits a few hundredths of a second for the portal; an answer that
  /// comes later is applied then.
  void apply();

  [[nodiscard]] static bool isDark(const QPalette& palette);
  /// What the text of a GTK settings.ini asks for.
  [[nodiscard]] static Wish inGtkSettings(const QString& text);
  /// What $XDG_CONFIG_HOME/gtk-3.0/settings.ini asks for; none if it cannot be read.
  [[nodiscard]] static Wish ofGtk();

private:
  void applyAnswer(const QDBusPendingCall& call);
  void applyWish(Wish wish);

  QObject context_;
  std::optional<QPalette> desktop_;  ///< as Qt's platform theme has it, once it has been asked
  std::unique_ptr<QDBusPendingCall> call_;
};

/// This program's own colours, for desktops whose theme gives none.
[[nodiscard]] QPalette lightPalette();
[[nodiscard]] QPalette darkPalette();

}  // namespace tilwin::qt
