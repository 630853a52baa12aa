// What a person reads in the window.

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QSlider>
#include <algorithm>
#include <cmath>

#include "platform/qt/settings/GroupView.h"
#include "platform/qt/settings/KeyCapButton.h"
#include "platform/qt/settings/MiniatureView.h"
#include "platform/qt/settings/PushButton.h"
#include "platform/qt/settings/RowView.h"
#include "platform/qt/settings/SwitchButton.h"
#include "platform/qt/settings/TextLabel.h"
#include "tests/contract/qt/QtSettingsDriver.h"

namespace tilwin::contract {
namespace {

/// The text of a label that can be seen, or nothing.
std::string labelText(const QWidget& in, const char* name) {
  for (const auto* label : in.findChildren<QLabel*>(QString::fromLatin1(name))) {
    if (label->isVisible()) return label->text().toStdString();
  }
  return {};
}

/// The visible widgets of a type within another, in reading order.
template <typename Wanted>
std::vector<const Wanted*> inside(const QWidget& within) {
  std::vector<const Wanted*> found;
  for (const auto* child : within.findChildren<QWidget*>()) {
    const auto* wanted = dynamic_cast<const Wanted*>(child);
    if (wanted != nullptr && child->isVisible()) found.push_back(wanted);
  }
  const auto place = [](const Wanted* widget) {
    const QPoint at = widget->mapToGlobal(QPoint(0, widget->height() / 2));
    return std::pair(at.y(), at.x());
  };
  std::ranges::sort(found, {}, place);
  return found;
}

bool isControl(const QWidget& widget) {
  return dynamic_cast<const qt::SwitchButton*>(&widget) != nullptr ||
         dynamic_cast<const qt::PushButton*>(&widget) != nullptr ||
         dynamic_cast<const qt::KeyCapButton*>(&widget) != nullptr ||
         dynamic_cast<const QSlider*>(&widget) != nullptr ||
         dynamic_cast<const QLineEdit*>(&widget) != nullptr;
}

ShownRow shownRow(const qt::RowView& row) {
  ShownRow shown{.id = row.objectName().toStdString(),
                 .title = labelText(row, "title"),
                 .note = labelText(row, "note"),
                 .problem = labelText(row, "problem")};
  for (const auto* widget : inside<QWidget>(row)) {
    if (isControl(*widget)) shown.controls.push_back(widget->objectName().toStdString());
  }
  return shown;
}

}  // namespace

ShownForm QtSettingsDriver::shown() {
  if (frame() == nullptr) return {};
  const auto& window = *frame();
  ShownForm shown{.windowTitle = window.windowTitle().toStdString(),
                  .title = labelText(window, "sectionTitle"),
                  .help = labelText(window, "sectionHelp"),
                  .emptyText = labelText(window, "emptyText")};
  const auto& list = dynamic_cast<QListWidget&>(control("sidebar"));
  for (int row = 0; row < list.count(); ++row) {
    shown.sections.push_back(list.item(row)->text().toStdString());
    if (list.item(row)->isSelected()) shown.chosen = shown.sections.back();
  }
  for (const auto* group : inside<qt::GroupView>(window)) {
    ShownGroup seen{.id = group->objectName().toStdString(), .heading = labelText(*group, "heading")};
    for (const auto* row : inside<qt::RowView>(*group)) seen.rows.push_back(shownRow(*row));
    shown.groups.push_back(seen);
  }
  return shown;
}

bool QtSettingsDriver::isOn(const std::string& toggle) {
  return dynamic_cast<qt::SwitchButton&>(control(toggle)).isChecked();
}

double QtSettingsDriver::sliderPosition(const std::string& slider) {
  const auto& bar = dynamic_cast<QSlider&>(control(slider));
  return static_cast<double>(bar.value() - bar.minimum()) / (bar.maximum() - bar.minimum());
}

std::string QtSettingsDriver::caption(const std::string& slider) {
  for (const auto* label : inside<qt::TextLabel>(*control(slider).parentWidget())) {
    if (label->objectName().isEmpty()) return label->text().toStdString();
  }
  return {};
}

std::string QtSettingsDriver::text(const std::string& field) {
  return dynamic_cast<QLineEdit&>(control(field)).text().toStdString();
}

FieldSelection QtSettingsDriver::selection(const std::string& field) {
  const auto& edit = dynamic_cast<QLineEdit&>(control(field));
  return {.cursor = edit.cursorPosition(),
          .start = edit.hasSelectedText() ? edit.selectionStart() : 0,
          .length = static_cast<int>(edit.selectedText().size())};
}

std::string QtSettingsDriver::buttonTitle(const std::string& buttonOrRecorder) {
  const auto& widget = control(buttonOrRecorder);
  if (const auto* button = dynamic_cast<const qt::PushButton*>(&widget)) return button->title().toStdString();
  return dynamic_cast<const qt::KeyCapButton&>(widget).title().toStdString();
}

std::vector<FormPicture::Tile> QtSettingsDriver::tiles(const std::string& picture) {
  return dynamic_cast<qt::MiniatureView&>(control(picture)).picture().tiles;
}

std::string QtSettingsDriver::focused() {
  const auto* widget = QApplication::focusWidget();
  return widget == nullptr ? std::string() : widget->objectName().toStdString();
}

}  // namespace tilwin::contract
