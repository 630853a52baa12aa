#include "platform/qt/menu/BusMenu.h"

#include <QMetaObject>
#include <QPointer>
#include <QVariant>
#include <utility>

#include "platform/qt/menu/BusMenuTypes.h"
#include "platform/qt/menu/PopupMenu.h"

namespace tilwin::qt {
namespace {

/// In a label, an underscore marks the letter that follows.
QString labelText(const std::string& title) { return titleText(title).replace('_', "__"); }

/// All properties that may change are given, so that none ever has to be taken away.
QVariantMap entryProperties(const MenuItem& item) {
  if (item.kind == MenuItem::Kind::separator) return {{"type", "separator"}};
  QVariantMap properties{{"label", labelText(item.title)}};
  if (item.kind == MenuItem::Kind::submenu) {
    properties["children-display"] = "submenu";
  } else {
    properties["toggle-type"] = item.isChecked ? "checkmark" : "";
    properties["toggle-state"] = item.isChecked ? 1 : 0;
    properties["enabled"] = item.isEnabled;
  }
  return properties;
}

/// Below `depth` levels the children are left out; -1 means all.
bus::Layout layoutOf(const NumberedMenu& menu, int number, int depth) {
  const auto& entry = *menu.entry(number);
  bus::Layout layout{.entry = number, .properties = entryProperties(entry.item)};
  if (depth == 0) return layout;
  for (const int child : entry.children) layout.children.push_back(layoutOf(menu, child, depth - 1));
  return layout;
}

}  // namespace

BusMenu::BusMenu(StatusItem::MenuMaker makeMenu, ChoiceHandler onChoice)
    : BusObject("/StatusNotifierItem/Menu", "com.canonical.dbusmenu"),
      makeMenu_(std::move(makeMenu)),
      onChoice_(std::move(onChoice)) {
  bus::registerMenuTypes();
  addMethods();
  addProperty("Version", "u", [] { return QVariant(3U); });
  addProperty("TextDirection", "s", [] { return QVariant("ltr"); });
  addProperty("Status", "s", [] { return QVariant("normal"); });
  addProperty("IconThemePath", "as", [] { return QVariant(QStringList()); });
}

void BusMenu::addMethods() {
  addMethod("GetLayout", "iias", "u(ia{sv}av)", [this](const auto& in) { return layout(in); });
  addMethod("GetGroupProperties", "aias", "a(ia{sv})", [this](const auto& in) { return propertiesOf(in); });
  addMethod("GetProperty", "is", "v", [this](const auto& in) { return property(in); });
  addMethod("Event", "isvu", "", [this](const auto& in) { return entryEvent(in); });
  addMethod("EventGroup", "a(isvu)", "ai", [this](const auto& in) { return entryEvents(in); });
  addMethod("AboutToShow", "i", "b",
            [this](const auto& in) { return QVariantList{isOutdated(in[0].toInt())}; });
  addMethod("AboutToShowGroup", "ai", "aiai", [this](const auto& in) { return aboutToShowGroup(in); });
}

bool BusMenu::remake() {
  former_ = std::exchange(menu_, NumberedMenu(makeMenu_(), menu_));
  QList<bus::EntryProperties> changed;
  for (const auto& [number, entry] : menu_.entries()) {
    const auto* before = former_.entry(number);
    const bool differs = before != nullptr && before->item != entry.item;
    if (differs) changed.push_back({number, entryProperties(entry.item)});
  }
  if (!changed.isEmpty()) {
    announce("ItemsPropertiesUpdated",
             {QVariant::fromValue(changed), QVariant::fromValue(QList<bus::EntryPropertyNames>())});
  }
  if (revision_ > 0 && menu_.hasShapeOf(former_)) return false;
  ++revision_;
  announce("LayoutUpdated", {revision_, 0});
  return true;
}

bool BusMenu::isOutdated(int entry) {
  // Submenus are part of the menu, and open later.
  return entry == 0 && remake();
}

QVariantList BusMenu::layout(const QVariantList& arguments) {
  if (revision_ == 0) remake();
  const int number = arguments[0].toInt();
  const auto layout = menu_.entry(number) == nullptr ? bus::Layout{.entry = number}
                                                     : layoutOf(menu_, number, arguments[1].toInt());
  return {revision_, QVariant::fromValue(layout)};
}

QVariantList BusMenu::propertiesOf(const QVariantList& arguments) const {
  auto numbers = qdbus_cast<QList<int>>(arguments[0]);
  // None means all of them.
  if (numbers.isEmpty()) {
    for (const auto& [number, entry] : menu_.entries()) numbers.append(number);
  }
  QList<bus::EntryProperties> all;
  for (const int number : numbers) {
    if (const auto* entry = find(number)) all.push_back({number, entryProperties(entry->item)});
  }
  return {QVariant::fromValue(all)};
}

QVariantList BusMenu::property(const QVariantList& arguments) const {
  const auto* entry = find(arguments[0].toInt());
  const auto properties = entry == nullptr ? QVariantMap() : entryProperties(entry->item);
  return {QVariant::fromValue(QDBusVariant(properties.value(arguments[1].toString(), "")))};
}

QVariantList BusMenu::entryEvent(const QVariantList& arguments) {
  happened(arguments[0].toInt(), arguments[1].toString());
  return {};
}

QVariantList BusMenu::entryEvents(const QVariantList& arguments) {
  QList<int> unknown;
  for (const auto& event : qdbus_cast<QList<bus::Event>>(arguments[0])) {
    if (!happened(event.entry, event.name)) unknown.push_back(event.entry);
  }
  return {QVariant::fromValue(unknown)};
}

QVariantList BusMenu::aboutToShowGroup(const QVariantList& arguments) {
  QList<int> outdated;
  for (const int entry : qdbus_cast<QList<int>>(arguments[0])) {
    if (isOutdated(entry)) outdated.push_back(entry);
  }
  return {QVariant::fromValue(outdated), QVariant::fromValue(QList<int>())};
}

bool BusMenu::happened(int entry, const QString& event) {
  const auto* found = find(entry);
  if (found == nullptr) return false;
  if (event == "clicked" && found->item.kind == MenuItem::Kind::command) {
    QMetaObject::invokeMethod(
        this, [this, choice = found->item.choice] { chosen(choice); }, Qt::QueuedConnection);
  }
  return true;
}

void BusMenu::chosen(const MenuChoice& choice) {
  const QPointer<BusMenu> alive(this);
  onChoice_(choice);
  // A panel that draws its menu with GTK does not resize it for entries that come while it is open.
  if (alive) remake();
}

const NumberedMenu::Entry* BusMenu::find(int entry) const {
  const auto* found = menu_.entry(entry);
  return found != nullptr ? found : former_.entry(entry);
}

}  // namespace tilwin::qt
