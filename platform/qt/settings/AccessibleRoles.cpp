#include "platform/qt/settings/AccessibleRoles.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "platform/qt/settings/GroupView.h"
#include "platform/qt/settings/MiniatureView.h"
#include "platform/qt/settings/SettingsFrame.h"

namespace tilwin::qt {
namespace {

template <typename Widget, QAccessible::Role role>
QAccessibleInterface* accessibleAs(const QString&, QObject* object) {
  auto* widget = dynamic_cast<Widget*>(object);
  return widget == nullptr ? nullptr : new QAccessibleWidget(widget, role);
}

}  // namespace

void installAccessibleRoles() {
  QAccessible::installFactory(accessibleAs<SettingsFrame, QAccessible::Window>);
  QAccessible::installFactory(accessibleAs<MiniatureView, QAccessible::Graphic>);
  QAccessible::installFactory(accessibleAs<GroupView, QAccessible::Grouping>);
}

}  // namespace tilwin::qt
