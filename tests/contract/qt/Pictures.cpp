#include "tests/contract/qt/Pictures.h"

#include <QApplication>
#include <QColor>
#include <filesystem>
#include <string>

#include "tests/contract/MainLoop.h"
#include "tests/contract/qt/QtDesktop.h"

namespace tilwin::contract {

std::string pictureFile(const std::string& name) {
  std::filesystem::create_directories(PICTURES_FOLDER);
  return std::string(PICTURES_FOLDER) + "/" + name + ".png";
}

void keepPicture(const QWidget& window, const std::string& name) {
  constexpr int margin = 12;
  keepPicture(window.frameGeometry().adjusted(-margin, -margin, margin, margin), name);
}

void keepPicture(const QRect& area, const std::string& name) {
  // What was drawn last may be on its way to the screen.
  runMainLoop(desktop::Milliseconds{150});
  qtDesktop().screenshot(pictureFile(name), Rect{double(area.x()), double(area.y()), double(area.width()),
                                                 double(area.height())});
}

DarkColours::DarkColours() : before_(QApplication::palette()) {
  QPalette dark(QColor(0x35, 0x35, 0x35), QColor(0x2b, 0x2b, 0x2b));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::BrightText}) {
    dark.setColor(role, QColor(0xee, 0xee, 0xee));
  }
  dark.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x1e));
  dark.setColor(QPalette::PlaceholderText, QColor(0x9a, 0x9a, 0x9a));
  dark.setColor(QPalette::Highlight, QColor(0x2a, 0x82, 0xda));
  QApplication::setPalette(dark);
}

DarkColours::~DarkColours() { QApplication::setPalette(before_); }

}  // namespace tilwin::contract
