#include "platform/qt/settings/RowLayout.h"

#include <QWidget>
#include <algorithm>

#include "platform/qt/settings/Theme.h"

namespace tilwin::qt {
namespace {

constexpr int columnGap = 2 * metrics::grid;
constexpr int controlGap = 2;  // beside the room for the focus rings
constexpr int leastStretch = 112;
constexpr int leastTitle = 120;
constexpr int leastLine = 28;
constexpr int besideTwoLines = 4;
constexpr int besideLines = 4;

int heightOf(QWidget* widget, int width) {
  return widget->hasHeightForWidth() ? widget->heightForWidth(width) : widget->sizeHint().height();
}

bool isShown(const QWidget* widget) { return widget != nullptr && !widget->isHidden(); }

}  // namespace

RowLayout::RowLayout(const RowParts& parts, int width)
    : parts_(parts), left_(metrics::ring), right_(width - metrics::ring), y_(parts.padding) {
  addPicture();
  addControls();
  if (isShown(parts_.note)) addText(*parts_.note);
  if (isShown(parts_.problem)) addText(*parts_.problem);
  y_ += parts_.padding;
}

void RowLayout::put(QWidget* widget, int x, int width) {
  line_.push_back({widget, {x, 0, width, heightOf(widget, width)}});
}

void RowLayout::closeLine(int least) {
  int height = least;
  for (const auto& place : line_) {
    const bool isText = dynamic_cast<const TextLabel*>(place.widget) != nullptr;
    height = std::max(height, place.area.height() + (isText ? 2 * besideLines : 0));
  }
  for (auto& place : line_) {
    place.area.moveTop(y_ + (height - place.area.height()) / 2);
    places_.push_back(place);
  }
  line_.clear();
  y_ += height;
}

void RowLayout::addPicture() {
  if (!isShown(parts_.picture)) return;
  const int width = parts_.picture->sizeHint().width();
  put(parts_.picture, left_, width);
  left_ += width + columnGap;
}

void RowLayout::addControls() {
  const auto stretching = std::ranges::find_if(*parts_.controls, &RowControl::stretches);
  if (stretching != parts_.controls->end()) {
    addStretchingLine(*stretching);
    for (auto further = stretching + 1; further != parts_.controls->end(); ++further) {
      if (further->stretches) addFurtherLine(*further);
    }
    return;
  }
  if (isShown(parts_.title)) return addTitleLine();
  if (!parts_.controls->empty()) return addFlow(left_ - metrics::ring);
  if (!line_.empty()) closeLine(leastLine);
}

int RowLayout::fixedWidth() const {
  int width = 0;
  for (const auto& control : *parts_.controls) {
    if (!control.stretches) width += control.widget->sizeHint().width() + controlGap;
  }
  return width;
}

void RowLayout::putFixed(int x) {
  for (const auto& control : *parts_.controls) {
    if (control.stretches) continue;
    const int width = control.widget->sizeHint().width();
    put(control.widget, x, width);
    x += width + controlGap;
  }
}

void RowLayout::addStretchingLine(const RowControl& stretching) {
  const bool hasTitle = isShown(parts_.title);
  const int title = hasTitle ? parts_.columns.title + columnGap : 0;
  const int caption = isShown(stretching.caption) ? parts_.columns.caption + metrics::grid : 0;
  const int fixed = fixedWidth();
  const int from = left_ + title - metrics::ring;
  const int room = right_ + metrics::ring - from - caption - fixed;
  if (hasTitle && room < leastStretch) return addTwoLines(stretching);
  if (hasTitle) put(parts_.title, left_, parts_.columns.title);
  put(stretching.widget, from, room);
  if (caption > 0) put(stretching.caption, right_ - fixed - parts_.columns.caption, parts_.columns.caption);
  putFixed(right_ + metrics::ring - fixed + controlGap);
  closeLine(leastLine);
}

void RowLayout::addTwoLines(const RowControl& stretching) {
  y_ += besideTwoLines;
  const bool hasCaption = isShown(stretching.caption);
  const int wanted = hasCaption ? stretching.caption->lineWidth() : 0;
  const int caption = std::min(wanted, (right_ - left_) * 2 / 3);
  const int gap = hasCaption ? metrics::grid : 0;
  put(parts_.title, left_, right_ - left_ - caption - gap);
  if (hasCaption) put(stretching.caption, right_ - caption, caption);
  closeLine(0);
  y_ -= besideLines;
  const int fixed = fixedWidth();
  put(stretching.widget, left_ - metrics::ring, right_ - left_ + 2 * metrics::ring - fixed);
  putFixed(right_ + metrics::ring - fixed + controlGap);
  closeLine(leastLine);
  y_ += besideTwoLines;
}

void RowLayout::addFurtherLine(const RowControl& stretching) {
  const int caption = isShown(stretching.caption) ? parts_.columns.caption + metrics::grid : 0;
  put(stretching.widget, left_ - metrics::ring, right_ - left_ + 2 * metrics::ring - caption);
  if (caption > 0) put(stretching.caption, right_ - parts_.columns.caption, parts_.columns.caption);
  closeLine(leastLine);
}

void RowLayout::addTitleLine() {
  const int fixed = fixedWidth();
  const int room = right_ - left_ - (fixed > 0 ? fixed + columnGap : 0);
  const int needed = std::min(leastTitle, parts_.title->lineWidth());
  const bool fits = room >= needed;
  put(parts_.title, left_, fits ? room : right_ - left_);
  if (!fits) {
    closeLine(0);
    return addFlow(left_ - metrics::ring);
  }
  putFixed(right_ + metrics::ring - fixed + controlGap);
  closeLine(leastLine);
}

void RowLayout::addFlow(int from) {
  int x = from;
  const int end = right_ + metrics::ring;
  for (const auto& control : *parts_.controls) {
    const int width = std::min(control.widget->sizeHint().width(), end - from);
    if (x > from && x + width > end) {
      closeLine(leastLine);
      x = from;
    }
    put(control.widget, x, width);
    x += width + controlGap;
  }
  closeLine(leastLine);
}

void RowLayout::addText(TextLabel& label) {
  const int width = right_ - left_;
  const bool isFirst = places_.empty();
  y_ += isFirst ? 4 : 2;
  const int height = label.heightForWidth(width);
  places_.push_back({&label, {left_, y_, width, height}});
  y_ += height + 4;
}

}  // namespace tilwin::qt
