#include "platform/qt/menu/NotifierItem.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QImage>
#include <QList>
#include <QVariant>
#include <QtEndian>
#include <array>
#include <utility>

#include "platform/qt/menu/TemplateIcon.h"

namespace tilwin::qt::bus {

/// (iiay): pixels of 32 bits, alpha first, in network byte order; not premultiplied.
struct IconPixmap {
  int width = 0;
  int height = 0;
  QByteArray pixels{};
};

/// (sa(iiay)ss)
struct ToolTip {
  QString iconName{};
  QList<IconPixmap> icons{};
  QString title{};
  QString text{};
};

static QDBusArgument& operator<<(QDBusArgument& to, const IconPixmap& value) {
  to.beginStructure();
  to << value.width << value.height << value.pixels;
  to.endStructure();
  return to;
}

static const QDBusArgument& operator>>(const QDBusArgument& from, IconPixmap& value) {
  from.beginStructure();
  from >> value.width >> value.height >> value.pixels;
  from.endStructure();
  return from;
}

static QDBusArgument& operator<<(QDBusArgument& to, const ToolTip& value) {
  to.beginStructure();
  to << value.iconName << value.icons << value.title << value.text;
  to.endStructure();
  return to;
}

static const QDBusArgument& operator>>(const QDBusArgument& from, ToolTip& value) {
  from.beginStructure();
  from >> value.iconName >> value.icons >> value.title >> value.text;
  from.endStructure();
  return from;
}

}  // namespace tilwin::qt::bus

Q_DECLARE_METATYPE(tilwin::qt::bus::IconPixmap)
Q_DECLARE_METATYPE(tilwin::qt::bus::ToolTip)

namespace tilwin::qt {
namespace {

constexpr const char* itemTitle = "Tilwin";

/// The sizes of icons in panels, in pixels. Some panels take the one that suits them best, others the
/// largest, which therefore is twice the most common size: scaled down by half it stays sharp.
constexpr std::array iconSides{16, 18, 20, 22, 24, 32, 36, 44};

bus::IconPixmap pixmapOf(const TemplateImage& image, int side) {
  const auto drawn = drawTemplate(image, side).convertToFormat(QImage::Format_ARGB32);
  QByteArray pixels(drawn.sizeInBytes(), 0);
  qToBigEndian<quint32>(drawn.constBits(), drawn.sizeInBytes() / qsizetype(sizeof(quint32)), pixels.data());
  return {side, side, pixels};
}

QVariant pixmapsOf(const TemplateImage& image) {
  QList<bus::IconPixmap> pixmaps;
  for (const int side : iconSides) pixmaps.push_back(pixmapOf(image, side));
  return QVariant::fromValue(pixmaps);
}

}  // namespace

NotifierItem::NotifierItem(QDBusConnection bus, TemplateImage image, BusMenu& menu,
                           std::function<void()> open)
    : BusObject("/StatusNotifierItem", "org.kde.StatusNotifierItem"),
      bus_(std::move(bus)),
      image_(std::move(image)),
      menu_(menu),
      open_(std::move(open)),
      name_(QString("org.kde.StatusNotifierItem-%1-1").arg(QCoreApplication::applicationPid())) {
  qDBusRegisterMetaType<bus::IconPixmap>();
  qDBusRegisterMetaType<QList<bus::IconPixmap>>();
  qDBusRegisterMetaType<bus::ToolTip>();
  addLook();
  addCalls();
  offer(bus_);
  menu_.offer(bus_);
}

void NotifierItem::addLook() {
  for (const auto& [name, text] : {std::pair{"Category", "ApplicationStatus"},
                                   {"Id", "tilwin"},
                                   {"Title", itemTitle},
                                   {"Status", "Active"},
                                   {"IconName", ""},
                                   {"IconThemePath", ""},
                                   {"OverlayIconName", ""},
                                   {"AttentionIconName", ""},
                                   {"AttentionMovieName", ""}}) {
    addProperty(name, "s", [text = QString(text)] { return QVariant(text); });
  }
  addProperty("WindowId", "i", [] { return QVariant(0); });
  addProperty("IconPixmap", "a(iiay)", [this] { return pixmapsOf(image_); });
  for (const auto* name : {"OverlayIconPixmap", "AttentionIconPixmap"}) {
    addProperty(name, "a(iiay)", [] { return QVariant::fromValue(QList<bus::IconPixmap>()); });
  }
  addProperty("ToolTip", "(sa(iiay)ss)",
              [] { return QVariant::fromValue(bus::ToolTip{.title = itemTitle}); });
  addProperty("ItemIsMenu", "b", [] { return QVariant(true); });
  addProperty("Menu", "o", [this] { return QVariant::fromValue(QDBusObjectPath(menu_.path())); });
}

void NotifierItem::addCalls() {
  // A panel that draws menus calls none of these for an item that is a menu.
  for (const auto* name : {"ContextMenu", "Activate"}) {
    addMethod(name, "ii", "", [this](const auto&) {
      open_();
      return QVariantList();
    });
  }
  addMethod("SecondaryActivate", "ii", "", [](const auto&) { return QVariantList(); });
  addMethod("Scroll", "is", "", [](const auto&) { return QVariantList(); });
  addMethod("ProvideXdgActivationToken", "s", "", [](const auto&) { return QVariantList(); });
}

void NotifierItem::show(const QString& watcher) {
  constexpr uint doNotQueue = 4;
  tellBus("RequestName", {name_, doNotQueue});
  auto message = QDBusMessage::createMethodCall(
      watcher, "/StatusNotifierWatcher", "org.kde.StatusNotifierWatcher", "RegisterStatusNotifierItem");
  message.setArguments({name_});
  bus_.send(message);
}

void NotifierItem::hide() { tellBus("ReleaseName", {name_}); }

void NotifierItem::tellBus(const QString& method, const QVariantList& arguments) {
  auto message = QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                "org.freedesktop.DBus", method);
  message.setArguments(arguments);
  bus_.send(message);
}

}  // namespace tilwin::qt
