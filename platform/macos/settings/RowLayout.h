#pragma once

#import <AppKit/AppKit.h>

#include <vector>

#include "platform/macos/settings/RowControl.h"

namespace tilwin::macos {

/// Widths of the columns that the rows of a group share, so that their controls stand below each other.
struct RowColumns {
  CGFloat title = 0;
  CGFloat caption = 0;
};

/// What a row consists of. Hidden labels take no room.
struct RowParts {
  MeasuredView* picture = nil;
  TWLabel* title = nil;
  TWLabel* note = nil;
  TWLabel* problem = nil;
  const std::vector<RowControl>* controls = nullptr;
  RowColumns columns{};
  CGFloat padding = 0;  ///< above and below
};

/// Where everything in a row goes for a given width: picture and title at the left, controls at the right or,
/// if there is not enough room, below; then the note and the problem. From the top left, in points.
class RowLayout {
public:
  struct Place {
    MeasuredView* view = nil;
    NSRect area{};
  };

  RowLayout(const RowParts& parts, CGFloat width);

  [[nodiscard]] const std::vector<Place>& places() const { return places_; }
  [[nodiscard]] CGFloat height() const { return y_; }

private:
  void addPicture();
  void addStretchingLine(const RowControl& stretching);
  void addTwoLines(const RowControl& stretching);
  void addFurtherLine(const RowControl& stretching);
  void addTitleLine();
  void addFlow(CGFloat from);
  void addText(TWLabel* label);
  void addControls();
  /// Centres what has been put on a line of at least `least`, and goes below it.
  void closeLine(CGFloat least);
  void put(MeasuredView* view, CGFloat x, CGFloat width);

  /// What the controls that do not stretch take, with the gap before each.
  [[nodiscard]] CGFloat fixedWidth() const;
  void putFixed();

  RowParts parts_;
  CGFloat left_ = 0;
  CGFloat right_;
  CGFloat y_;
  std::vector<Place> line_;
  std::vector<Place> places_;
};

}  // namespace tilwin::macos
