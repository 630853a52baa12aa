#include "platform/macos/settings/RowLayout.h"

#include <algorithm>

namespace tilwin::macos {
namespace {

constexpr CGFloat columnGap = 2 * metrics::grid;
constexpr CGFloat controlGap = metrics::grid;
constexpr CGFloat leastStretch = 112;
constexpr CGFloat leastTitle = 120;
constexpr CGFloat leastLine = 28;
constexpr CGFloat besideLines = 3;

bool isShown(NSView* view) { return view != nil && ![view isHidden]; }

}  // namespace

RowLayout::RowLayout(const RowParts& parts, CGFloat width) : parts_(parts), right_(width), y_(parts.padding) {
  addPicture();
  addControls();
  if (isShown(parts_.note)) addText(parts_.note);
  if (isShown(parts_.problem)) addText(parts_.problem);
  y_ += parts_.padding;
}

void RowLayout::put(MeasuredView* view, CGFloat x, CGFloat width) {
  line_.push_back({view, NSMakeRect(x, 0, width, [view heightForWidth:width])});
}

void RowLayout::closeLine(CGFloat least) {
  CGFloat height = least;
  for (const auto& place : line_) height = std::max(height, place.area.size.height + 2 * besideLines);
  for (auto& place : line_) {
    place.area.origin.y = y_ + (height - place.area.size.height) / 2;
    places_.push_back(place);
  }
  line_.clear();
  y_ += height;
}

void RowLayout::addPicture() {
  if (!isShown(parts_.picture)) return;
  const CGFloat width = [parts_.picture naturalWidth];
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
  if (!parts_.controls->empty()) return addFlow(left_);
  if (!line_.empty()) closeLine(leastLine);
}

CGFloat RowLayout::fixedWidth() const {
  CGFloat width = 0;
  for (const auto& control : *parts_.controls) {
    if (!control.stretches) width += [control.view.get() naturalWidth] + controlGap;
  }
  return width;
}

void RowLayout::putFixed() {
  CGFloat x = right_ - fixedWidth();
  for (const auto& control : *parts_.controls) {
    if (control.stretches) continue;
    const CGFloat width = [control.view.get() naturalWidth];
    put(control.view.get(), x + controlGap, width);
    x += width + controlGap;
  }
}

void RowLayout::addStretchingLine(const RowControl& stretching) {
  TWLabel* const caption = stretching.caption.get();
  const bool hasTitle = isShown(parts_.title);
  const CGFloat from = left_ + (hasTitle ? parts_.columns.title + columnGap : 0);
  const CGFloat captionRoom = isShown(caption) ? parts_.columns.caption + controlGap : 0;
  const CGFloat room = right_ - from - captionRoom - fixedWidth();
  if (hasTitle && room < leastStretch) return addTwoLines(stretching);
  if (hasTitle) put(parts_.title, left_, parts_.columns.title);
  put(stretching.view.get(), from, room);
  if (isShown(caption)) put(caption, from + room + controlGap, parts_.columns.caption);
  putFixed();
  closeLine(leastLine);
}

void RowLayout::addTwoLines(const RowControl& stretching) {
  TWLabel* const caption = stretching.caption.get();
  const bool hasCaption = isShown(caption);
  const CGFloat wanted = hasCaption ? [caption naturalWidth] : 0;
  const CGFloat captionWidth = std::min(wanted, (right_ - left_) * 2 / 3);
  put(parts_.title, left_, right_ - left_ - captionWidth - (hasCaption ? controlGap : 0));
  if (hasCaption) put(caption, right_ - captionWidth, captionWidth);
  closeLine(0);
  put(stretching.view.get(), left_, right_ - left_ - fixedWidth());
  putFixed();
  closeLine(leastLine);
}

void RowLayout::addFurtherLine(const RowControl& stretching) {
  TWLabel* const caption = stretching.caption.get();
  const CGFloat captionRoom = isShown(caption) ? parts_.columns.caption + controlGap : 0;
  put(stretching.view.get(), left_, right_ - left_ - captionRoom);
  if (isShown(caption)) put(caption, right_ - parts_.columns.caption, parts_.columns.caption);
  closeLine(leastLine);
}

void RowLayout::addTitleLine() {
  const CGFloat fixed = fixedWidth();
  const CGFloat room = right_ - left_ - (fixed > 0 ? fixed + columnGap - controlGap : 0);
  const bool fits = room >= std::min(leastTitle, [parts_.title naturalWidth]);
  put(parts_.title, left_, fits ? room : right_ - left_);
  if (!fits) {
    closeLine(0);
    return addFlow(left_);
  }
  putFixed();
  closeLine(leastLine);
}

void RowLayout::addFlow(CGFloat from) {
  CGFloat x = from;
  for (const auto& control : *parts_.controls) {
    const CGFloat width = std::min([control.view.get() naturalWidth], right_ - from);
    if (x > from && x + width > right_) {
      closeLine(leastLine);
      x = from;
    }
    put(control.view.get(), x, width);
    x += width + controlGap;
  }
  closeLine(leastLine);
}

void RowLayout::addText(TWLabel* label) {
  const CGFloat width = right_ - left_;
  y_ += places_.empty() ? 4 : 1;
  const CGFloat height = [label heightForWidth:width];
  places_.push_back({label, NSMakeRect(left_, y_, width, height)});
  y_ += height + 4;
}

}  // namespace tilwin::macos
