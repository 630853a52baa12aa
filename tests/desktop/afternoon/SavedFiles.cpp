#include "tests/desktop/afternoon/SavedFiles.h"

#include <QByteArray>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>
#include <filesystem>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

QJsonObject parsed(const QByteArray& json, const std::string& what) {
  QJsonParseError error{};
  const auto document = QJsonDocument::fromJson(json, &error);
  if (!document.isObject()) {
    throw HarnessError(what + " is not whole: " + error.errorString().toStdString() + "\n" +
                       json.toStdString());
  }
  return document.object();
}

Names namesIn(const QJsonArray& objects) {
  Names names;
  for (const auto& each : objects) names.push_back(each.toObject()["name"].toString().toStdString());
  return names;
}

Names textsIn(const QJsonArray& array) {
  Names texts;
  for (const auto& each : array) texts.push_back(each.toString().toStdString());
  return texts;
}

}  // namespace

std::optional<SavedSettings> savedSettings(const PrivateHome& home) {
  const auto path = home.config() / "Tilwin" / "Tilwin.conf";
  if (!std::filesystem::exists(path)) return std::nullopt;
  const QSettings file(QString::fromStdString(path), QSettings::IniFormat);
  const auto json = file.value("tilwin.settings.v1").toString().toUtf8();
  if (file.status() != QSettings::NoError) throw HarnessError(path.string() + " is not whole");
  const auto object = parsed(json, path);
  return SavedSettings{.outer = object["outer"].toDouble(-1),
                       .areas = namesIn(object["customAreas"].toArray()),
                       .ignored = textsIn(object["ignoredApps"].toArray()),
                       .recordsDrags = object["shadowRecording"].toBool()};
}

std::optional<SavedLayouts> savedLayouts(const PrivateHome& home) {
  const auto path = home.data() / "Tilwin" / "layouts.json";
  QFile file(QString::fromStdString(path));
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  const auto json = file.readAll();
  const auto object = parsed(json, path);
  SavedLayouts layouts{.names = {}, .automatic = {}, .text = json.toStdString()};
  for (const auto& each : object["layouts"].toArray()) {
    const auto layout = each.toObject();
    if (layout["isAutomatic"].toBool()) {
      layouts.automatic.push_back(static_cast<std::size_t>(layout["slots"].toArray().size()));
    } else {
      layouts.names.push_back(layout["name"].toString().toStdString());
    }
  }
  return layouts;
}

}  // namespace tilwin::desktop
