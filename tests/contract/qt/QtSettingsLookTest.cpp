#include <gtest/gtest.h>

#include <QApplication>
#include <QListWidget>
#include <QRegion>
#include <array>
#include <cstdlib>
#include <filesystem>

#include "platform/qt/settings/KeyCapButton.h"
#include "platform/qt/settings/MiniatureView.h"
#include "platform/qt/settings/PushButton.h"
#include "platform/qt/settings/RowView.h"
#include "platform/qt/settings/TextLabel.h"
#include "tests/contract/MainLoop.h"
#include "tests/contract/SampleForm.h"
#include "tests/contract/qt/QtSettingsDriver.h"

namespace tilwin::contract {
namespace {

constexpr std::array sections{"spacing", "behavior", "shortcuts", "areas", "statistics"};

/// Where pictures are kept: the folder in this variable, if it is set.
std::optional<std::filesystem::path> pictureFolder() {
  const char* folder = std::getenv("TILWIN_PICTURES");
  if (folder == nullptr || *folder == '\0') return std::nullopt;
  std::filesystem::create_directories(folder);
  return folder;
}

/// Titles as other languages have them.
FormModel lengthened(FormModel form) {
  const std::string compound = " Rechtsschutzversicherungsgesellschaften und Donaudampfschifffahrt";
  for (auto& section : form.sections) {
    section.title += compound;
    section.help += compound;
    for (auto& group : section.groups) {
      group.heading += compound;
      for (auto& row : group.rows) {
        if (!row.title.empty()) row.title += compound;
        if (!row.problem.empty()) row.problem += compound;
        for (auto& control : row.controls) {
          if (auto* toggle = std::get_if<FormToggle>(&control)) toggle->title += compound;
        }
      }
    }
  }
  return form;
}

/// What is wrong with how a widget is drawn, or nothing.
std::string faultOf(const QWidget& widget) {
  if (widget.hasHeightForWidth() && widget.layout() == nullptr &&
      widget.height() < widget.heightForWidth(widget.width())) {
    return "is too low for its text";
  }
  const bool isButton = dynamic_cast<const qt::PushButton*>(&widget) != nullptr ||
                        dynamic_cast<const qt::KeyCapButton*>(&widget) != nullptr ||
                        dynamic_cast<const qt::MiniatureView*>(&widget) != nullptr;
  if (isButton && widget.width() < widget.sizeHint().width()) return "is too narrow";
  const bool isContent = widget.parentWidget()->objectName() == QLatin1String("qt_scrollarea_viewport");
  if (isContent && widget.width() > widget.parentWidget()->width()) return "is too wide";
  if (!isContent && !widget.parentWidget()->rect().contains(widget.geometry())) return "leaves its parent";
  return {};
}

void expectNothingCutOff(const std::string& where) {
  for (const auto* widget : QtSettingsDriver::frame()->findChildren<QWidget*>()) {
    if (!widget->isVisible() || dynamic_cast<const QListWidget*>(widget->parentWidget()) != nullptr) continue;
    const auto* label = dynamic_cast<const QLabel*>(widget);
    const auto fault = faultOf(*widget);
    EXPECT_EQ(fault, "") << where << ": " << widget->objectName().toStdString() << " \""
                         << (label == nullptr ? "" : label->text().toStdString()) << '"';
  }
}

/// Fails if two things in one row lie on each other.
void expectNothingOverlaps(const std::string& where) {
  for (const auto* widget : QtSettingsDriver::frame()->findChildren<QWidget*>()) {
    if (dynamic_cast<const qt::RowView*>(widget) == nullptr || !widget->isVisible()) continue;
    QRegion taken;
    for (const auto* part : widget->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
      if (!part->isVisible()) continue;
      EXPECT_FALSE(taken.intersects(part->geometry())) << where << ": " << part->objectName().toStdString()
                                                       << " in " << widget->objectName().toStdString();
      taken += part->geometry();
    }
  }
}

class QtSettingsLook : public testing::Test {
protected:
  void TearDown() override { std::filesystem::remove_all(qtDesktop().home().config() / "gtk-3.0"); }

  static void askForDark() {
    qtDesktop().home().write("config/gtk-3.0/settings.ini", "[Settings]\ngtk-theme-name=Adwaita-dark\n");
  }
  void show(const FormModel& form) {
    driver_.window().show(form);
    driver_.settle([&] { return driver_.isInFront(); });
    QtSettingsDriver::letArrive();
  }
  /// Keeps a picture of the window and returns it.
  static QImage picture(const std::string& name) {
    auto& desk = qtDesktop().desktop();
    const auto area = desk.clientArea(static_cast<desktop::WindowId>(QtSettingsDriver::frame()->winId()));
    auto image = desktop::screenshot(desk.connection(), area);
    if (const auto folder = pictureFolder()) {
      const auto scale = qRound(QtSettingsDriver::frame()->devicePixelRatioF() * 100);
      const auto file = *folder / ("settings-" + name + "-" + std::to_string(scale) + ".png");
      EXPECT_TRUE(image.save(QString::fromStdString(file.string()))) << file;
    }
    return image;
  }
  void drawEverySection(const std::string& colours, bool isDark) {
    for (const char* section : sections) {
      show(sampleForm(section));
      const auto image = picture(colours + "-" + section);
      EXPECT_GT(desktop::colourCount(image), 60) << section;
      const QColor corner = image.pixelColor(image.width() - 4, 4);
      EXPECT_EQ(corner.lightness() < 128, isDark)
          << section << " is " << corner.name().toStdString() << " there, the palette's windows are "
          << QApplication::palette().color(QPalette::Window).name().toStdString();
    }
  }

  QtSettingsDriver driver_;
};

TEST_F(QtSettingsLook, EverySectionIsDrawnInLightColours) { drawEverySection("light", false); }

TEST_F(QtSettingsLook, EverySectionIsDrawnInDarkColoursIfTheDesktopIsDark) {
  askForDark();
  drawEverySection("dark", true);
}

TEST_F(QtSettingsLook, ARecorderThatRecordsStandsOut) {
  for (const char* colours : {"light", "dark"}) {
    driver_.window().close();
    if (colours == std::string("dark")) askForDark();
    auto form = sampleForm("shortcuts");
    show(form);
    const auto before = picture(std::string(colours) + "-idle");
    auto& recorder = *findControl<FormRecorder>(form, "leftHalf.keys");
    recorder.isRecording = true;
    recorder.title = "Press keys…";
    show(form);
    EXPECT_TRUE(picture(std::string(colours) + "-recording") != before);
  }
}

TEST_F(QtSettingsLook, TheFocusCanBeSeenOnEveryControl) {
  for (const char* section : sections) {
    show(sampleForm(section));
    std::string first;
    // Until a key is pressed, the chosen section stands for the focus in the list.
    qtDesktop().input().press("Tab");
    for (int turn = 0; turn < 30; ++turn) {
      QtSettingsDriver::letArrive();
      auto& before = *QApplication::focusWidget();
      const auto focused = before.grab().toImage();
      qtDesktop().input().press("Tab");
      driver_.settle([&] { return QApplication::focusWidget() != &before; });
      EXPECT_TRUE(before.grab().toImage() != focused) << section << ": " << before.objectName().toStdString();
      if (section == std::string("areas") && turn == 2) picture("light-focus");
      if (driver_.focused() == first) break;
      if (first.empty()) first = driver_.focused();
    }
  }
}

TEST_F(QtSettingsLook, NothingIsCutOffAtAnySize) {
  for (const QSize size : {QSize(720, 480), QSize(840, 640), QSize(1300, 900)}) {
    for (const char* section : sections) {
      for (const bool isLong : {false, true}) {
        show(isLong ? lengthened(sampleForm(section)) : sampleForm(section));
        QtSettingsDriver::frame()->resize(size);
        driver_.settle([&] { return QtSettingsDriver::frame()->size() == size; });
        QtSettingsDriver::letArrive();
        const std::string name =
            std::to_string(size.width()) + (isLong ? "-long-" : "-") + std::string(section);
        expectNothingCutOff(name);
        expectNothingOverlaps(name);
        if (isLong) picture(name);
      }
    }
  }
}

TEST_F(QtSettingsLook, ARowMayHoldSeveralControlsOfEachKind) {
  auto form = sampleForm("behavior");
  auto& row = rowIn(form, "icon-row");
  row.title = "All of them";
  for (const char* id : {"one", "two"}) {
    const std::string name(id);
    row.controls.emplace_back(FormToggle{name + "-toggle", "Toggle " + name, true});
    row.controls.emplace_back(
        FormSlider{.id = name + "-slider", .label = name, .caption = "caption " + name});
    row.controls.emplace_back(FormTextField{.id = name + "-field", .label = name, .text = name});
    row.controls.emplace_back(FormButton{.id = name + "-button", .title = name});
    row.controls.emplace_back(FormRecorder{.id = name + "-keys", .title = name, .label = name});
  }
  show(form);
  expectNothingCutOff("several");
  expectNothingOverlaps("several");
  picture("light-several");
}

}  // namespace
}  // namespace tilwin::contract
