#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include "core/geometry/Rect.h"

/// How a row of a form is laid out, whatever draws it.

namespace tilwin::drawing {

/// Widths of the columns that the rows of a group share, so that their controls stand below each other.
struct RowColumns {
  double title = 0;
  double caption = 0;

  bool operator==(const RowColumns&) const = default;
};

/// Lengths in points. `ring` is the room that controls have around their bodies for the focus ring: bodies
/// stand in line with texts, so controls reach that much further.
struct RowMetrics {
  double ring = 0;
  double columnGap = 16;
  double captionGap = 8;
  double controlGap = 8;      ///< beside the rings
  double leastStretch = 112;  ///< a slider that would be shorter goes below its title
  double leastTitle = 120;    ///< a title that would be narrower has its controls below it
  double leastLine = 28;
  double besideTwoLines = 4;  ///< above and below a slider that is below its title
};

/// What a row consists of. `View` is a pointer to the toolkit's widgets.
template <typename View>
struct RowParts {
  struct Control {
    View view{};
    View caption{};          ///< of a slider
    bool stretches = false;  ///< takes the room that the others leave
  };

  View picture{};
  View title{};
  View note{};
  View problem{};
  std::vector<Control> controls{};
  RowColumns columns{};
  double padding = 0;  ///< above and below
};

/// Where everything in a row goes for a given width: picture and title at the left, controls at the right or,
/// if there is not enough room, below; then the note and the problem. From the top left, in points.
///
/// `Toolkit` has the type `View`, the constant `metrics`, and, as static functions of a view: `isShown`
/// (false for null), `naturalWidth`, `height`, which also takes the view's width, and `beside`, the room to
/// keep above and below it in a line.
template <typename Toolkit>
class RowLayout {
public:
  using View = typename Toolkit::View;
  using Parts = RowParts<View>;

  struct Place {
    View view{};
    Rect area{};
  };

  RowLayout(Parts parts, double width)
      : parts_(std::move(parts)), left_(metrics.ring), right_(width - metrics.ring), y_(parts_.padding) {
    addPicture();
    addControls();
    addText(parts_.note);
    addText(parts_.problem);
    y_ += parts_.padding;
  }

  [[nodiscard]] const std::vector<Place>& places() const { return places_; }
  [[nodiscard]] double height() const { return y_; }

private:
  using Control = typename Parts::Control;
  static constexpr RowMetrics metrics = Toolkit::metrics;

  static double naturalWidth(View view) { return Toolkit::isShown(view) ? Toolkit::naturalWidth(view) : 0; }
  static bool isShown(View view) { return Toolkit::isShown(view); }

  void put(View view, double x, double width) {
    if (isShown(view)) line_.push_back({view, {x, 0, width, Toolkit::height(view, width)}});
  }

  /// A control, whose body begins and ends at these places.
  void putControl(View view, double from, double to) {
    put(view, from - metrics.ring, to - from + 2 * metrics.ring);
  }

  /// Centres what has been put on a line of at least `least`, and goes below it.
  void closeLine(double least) {
    double height = least;
    for (const auto& place : line_) {
      height = std::max(height, place.area.height + 2 * Toolkit::beside(place.view));
    }
    for (auto& place : line_) {
      place.area.y = y_ + (height - place.area.height) / 2;
      places_.push_back(place);
    }
    line_.clear();
    y_ += height;
  }

  void addPicture() {
    if (!isShown(parts_.picture)) return;
    const double width = naturalWidth(parts_.picture);
    put(parts_.picture, left_, width);
    left_ += width + metrics.columnGap;
  }

  void addControls() {
    const auto stretching = std::ranges::find_if(parts_.controls, &Control::stretches);
    if (stretching != parts_.controls.end()) {
      addStretchingLine(*stretching);
      for (auto further = stretching + 1; further != parts_.controls.end(); ++further) {
        if (further->stretches) addFurtherLine(*further);
      }
      return;
    }
    if (isShown(parts_.title)) return addTitleLine();
    if (!parts_.controls.empty()) return addFlow();
    if (!line_.empty()) closeLine(metrics.leastLine);
  }

  /// What the bodies of the controls that do not stretch take, with the gap before each.
  [[nodiscard]] double fixedWidth() const {
    double width = 0;
    for (const auto& control : parts_.controls) {
      if (!control.stretches) width += naturalWidth(control.view) + metrics.controlGap;
    }
    return width;
  }

  void putFixed() {
    double x = right_ + metrics.ring - fixedWidth();
    for (const auto& control : parts_.controls) {
      if (control.stretches) continue;
      const double width = naturalWidth(control.view);
      put(control.view, x + metrics.controlGap, width);
      x += width + metrics.controlGap;
    }
  }

  [[nodiscard]] double captionRoom(const Control& of) const {
    return isShown(of.caption) ? parts_.columns.caption + metrics.captionGap : 0;
  }

  void addStretchingLine(const Control& stretching) {
    const bool hasTitle = isShown(parts_.title);
    const double from = left_ + (hasTitle ? parts_.columns.title + metrics.columnGap : 0);
    const double end = right_ - fixedWidth();
    const double to = end - captionRoom(stretching);
    if (hasTitle && to - from + 2 * metrics.ring < metrics.leastStretch) return addTwoLines(stretching);
    put(parts_.title, left_, parts_.columns.title);
    putControl(stretching.view, from, to);
    put(stretching.caption, end - parts_.columns.caption, parts_.columns.caption);
    putFixed();
    closeLine(metrics.leastLine);
  }

  void addTwoLines(const Control& stretching) {
    y_ += metrics.besideTwoLines;
    const double caption = std::min(naturalWidth(stretching.caption), (right_ - left_) * 2 / 3);
    put(parts_.title, left_, right_ - left_ - caption - (caption > 0 ? metrics.captionGap : 0));
    put(stretching.caption, right_ - caption, caption);
    closeLine(0);
    y_ -= Toolkit::beside(parts_.title);
    putControl(stretching.view, left_, right_ - fixedWidth());
    putFixed();
    closeLine(metrics.leastLine);
    y_ += metrics.besideTwoLines;
  }

  void addFurtherLine(const Control& stretching) {
    putControl(stretching.view, left_, right_ - captionRoom(stretching));
    put(stretching.caption, right_ - parts_.columns.caption, parts_.columns.caption);
    closeLine(metrics.leastLine);
  }

  void addTitleLine() {
    const double fixed = fixedWidth();
    const double room = right_ - left_ - (fixed > 0 ? fixed + metrics.columnGap : 0);
    if (room < std::min(metrics.leastTitle, naturalWidth(parts_.title))) {
      put(parts_.title, left_, right_ - left_);
      closeLine(0);
      return addFlow();
    }
    put(parts_.title, left_, room);
    putFixed();
    closeLine(metrics.leastLine);
  }

  void addFlow() {
    const double from = left_ - metrics.ring;
    const double end = right_ + metrics.ring;
    double x = from;
    for (const auto& control : parts_.controls) {
      const double width = std::min(naturalWidth(control.view), end - from);
      if (x > from && x + width > end) {
        closeLine(metrics.leastLine);
        x = from;
      }
      put(control.view, x, width);
      x += width + metrics.controlGap;
    }
    closeLine(metrics.leastLine);
  }

  void addText(View label) {
    if (!isShown(label)) return;
    const double width = right_ - left_;
    const double height = Toolkit::height(label, width);
    y_ += places_.empty() ? 4 : 2;
    places_.push_back({label, {left_, y_, width, height}});
    y_ += height + 4;
  }

  Parts parts_;
  double left_;
  double right_;
  double y_;
  std::vector<Place> line_;
  std::vector<Place> places_;
};

}  // namespace tilwin::drawing
