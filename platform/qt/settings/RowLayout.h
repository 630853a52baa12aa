#pragma once

#include <QRect>
#include <vector>

#include "platform/qt/settings/RowControl.h"

class QWidget;

namespace tilwin::qt {

/// Widths of the columns that the rows of a group share, so that their controls stand below each other.
struct RowColumns {
  int title = 0;
  int caption = 0;

  bool operator==(const RowColumns&) const = default;
};

/// What a row consists of. Hidden labels take no room.
struct RowParts {
  QWidget* picture = nullptr;
  TextLabel* title = nullptr;
  TextLabel* note = nullptr;
  TextLabel* problem = nullptr;
  const std::vector<RowControl>* controls = nullptr;
  RowColumns columns{};
  int padding = 0;  ///< above and below
};

/// Where everything in a row goes for a given width: picture and title at the left, controls at the right or,
/// if there is not enough room, below; then the note and the problem.
class RowLayout {
public:
  struct Place {
    QWidget* widget = nullptr;
    QRect area{};
  };

  RowLayout(const RowParts& parts, int width);

  [[nodiscard]] const std::vector<Place>& places() const { return places_; }
  [[nodiscard]] int height() const { return y_; }

private:
  void addPicture();
  void addStretchingLine(const RowControl& stretching);
  void addTwoLines(const RowControl& stretching);
  void addFurtherLine(const RowControl& stretching);
  void addTitleLine();
  void addFlow(int from);
  void addText(TextLabel& label);
  void addControls();
  /// Puts these side by side, centred on a line of at least `least`, and goes below it.
  void closeLine(int least);
  void put(QWidget* widget, int x, int width);

  [[nodiscard]] int fixedWidth() const;
  void putFixed(int x);

  RowParts parts_;
  int left_;
  int right_;
  int y_;
  std::vector<Place> line_;
  std::vector<Place> places_;
};

}  // namespace tilwin::qt
