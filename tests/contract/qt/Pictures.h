#pragma once

#include <QPalette>
#include <QRect>
#include <QWidget>
#include <string>

namespace tilwin::contract {

/// The file for a picture that people look at, in the build folder.
[[nodiscard]] std::string pictureFile(const std::string& name);

/// Saves how a window looks on the screen, with its frame.
void keepPicture(const QWidget& window, const std::string& name);
/// Saves how this part of the screen looks.
void keepPicture(const QRect& area, const std::string& name);

/// Gives the application dark colours for as long as it lives.
class DarkColours {
public:
  DarkColours();
  DarkColours(const DarkColours&) = delete;
  DarkColours& operator=(const DarkColours&) = delete;
  ~DarkColours();

private:
  QPalette before_;
};

}  // namespace tilwin::contract
