#include "tests/desktop/soak/KeptLayout.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop::soak {

namespace {

KeptPlaces placesIn(const QJsonArray& kept) {
  KeptPlaces places;
  for (const auto& each : kept) {
    const auto slot = each.toObject();
    const auto share = slot["target"].toObject()["normalized"].toObject()["_0"].toObject();
    places[slot["bundleID"].toString().toStdString()] = {
        .display = static_cast<std::size_t>(slot["displayIndex"].toInt()),
        .share = {share["x"].toDouble(), share["y"].toDouble(), share["width"].toDouble(),
                  share["height"].toDouble()}};
  }
  return places;
}

}  // namespace

std::optional<KeptPlaces> keptLayout(const PrivateHome& home, const std::string& signature) {
  const auto path = home.data() / "Tilwin" / "layouts.json";
  QFile file(QString::fromStdString(path));
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  QJsonParseError error{};
  const auto document = QJsonDocument::fromJson(file.readAll(), &error);
  if (!document.isObject()) throw HarnessError("layouts.json: " + error.errorString().toStdString());
  for (const auto& each : document.object()["layouts"].toArray()) {
    const auto layout = each.toObject();
    const auto key = layout["signature"].toObject()["key"].toString().toStdString();
    if (layout["isAutomatic"].toBool() && key == signature) return placesIn(layout["slots"].toArray());
  }
  return std::nullopt;
}

}  // namespace tilwin::desktop::soak
