#include "platform/macos/settings/CardView.h"

#include <algorithm>
#include <utility>

#include "platform/macos/settings/Painting.h"

using tilwin::FormGroup;
using tilwin::macos::PictureScale;
using tilwin::macos::Report;
using tilwin::macos::RowColumns;

namespace metrics = tilwin::macos::metrics;

namespace {

constexpr CGFloat widestTitleColumn = 200;
constexpr CGFloat widestCaptionColumn = 240;
constexpr CGFloat leastCaptionColumn = 40;  // for shares up to 100%
constexpr CGFloat tightPadding = 2;
constexpr CGFloat loosePadding = 6;
constexpr CGFloat besidePicture = 3 * metrics::grid;

struct Arrangement {
  NSRect picture;
  NSRect rows;
  CGFloat height;
};

}  // namespace

@implementation TWCardView

- (instancetype)initWithReport:(Report)report {
  self = [super initWithReport:std::move(report)];
  if (self == nil) return nil;
  return self;
}

- (void)displayModel:(const FormGroup&)group {
  tilwin::macos::updatePicture(picture_, group.picture, PictureScale::large, report_, self);
  rows_.update(group.rows, self,
               [&] { return tilwin::macos::owned([[TWRowView alloc] initWithReport:report_]); });
  isBare_ = !group.picture &&
            std::ranges::all_of(rows_.views(), [](const auto& row) { return [row.get() isBare]; });
  [self shareColumns];
  [self setNeedsDisplay:YES];
}

- (void)shareColumns {
  RowColumns shared{.caption = leastCaptionColumn};
  for (const auto& row : rows_.views()) {
    const RowColumns wanted = [row.get() wantedColumns];
    shared.title = std::max(shared.title, std::min(wanted.title, widestTitleColumn));
    shared.caption = std::max(shared.caption, std::min(wanted.caption, widestCaptionColumn));
  }
  const CGFloat padding = picture_ || isBare_ ? tightPadding : loosePadding;
  for (const auto& row : rows_.views()) [row.get() setColumns:shared padding:padding];
}

- (CGFloat)rowsHeightForWidth:(CGFloat)width {
  CGFloat height = 0;
  for (const auto& row : rows_.views()) height += [row.get() heightForWidth:width];
  return height;
}

- (Arrangement)arrangementForWidth:(CGFloat)width {
  const CGFloat side = isBare_ ? 0 : metrics::cardPadding;
  const CGFloat room = width - 2 * side;
  if (!picture_) {
    const CGFloat height = [self rowsHeightForWidth:room];
    return {NSZeroRect, NSMakeRect(side, 0, room, height), height};
  }
  const CGFloat pictureWidth = [picture_.get() naturalWidth];
  const CGFloat pictureHeight = [picture_.get() heightForWidth:pictureWidth];
  const CGFloat beside = room - pictureWidth - besidePicture;
  const CGFloat ends = metrics::cardPadding - tightPadding;
  const CGFloat rows = [self rowsHeightForWidth:beside];
  const CGFloat height = std::max(rows + 2 * ends, pictureHeight + 2 * metrics::cardPadding);
  return {NSMakeRect(side, (height - pictureHeight) / 2, pictureWidth, pictureHeight),
          NSMakeRect(width - side - beside, (height - rows) / 2, beside, rows), height};
}

- (CGFloat)heightForWidth:(CGFloat)width {
  return [self arrangementForWidth:width].height;
}

- (void)arrange {
  const Arrangement places = [self arrangementForWidth:[self bounds].size.width];
  if (picture_) tilwin::macos::place(picture_.get(), places.picture);
  CGFloat y = places.rows.origin.y;
  for (const auto& row : rows_.views()) {
    const CGFloat height = [row.get() heightForWidth:places.rows.size.width];
    tilwin::macos::place(row.get(), NSMakeRect(places.rows.origin.x, y, places.rows.size.width, height));
    [row.get() arrange];
    y += height;
  }
}

- (void)addKeyViewsTo:(std::vector<NSView*>&)views {
  for (const auto& row : rows_.views()) [row.get() addKeyViewsTo:views];
}

- (void)drawRect:(NSRect)dirty {
  (void)dirty;
  if (isBare_) return;
  tilwin::macos::fillRounded([self bounds], metrics::cardRadius, [NSColor controlBackgroundColor]);
  tilwin::macos::strokeRounded([self bounds], metrics::cardRadius, [NSColor separatorColor], 1);
  if (picture_) return;
  [[NSColor separatorColor] set];
  for (const auto& row : rows_.views()) {
    const NSRect frame = [row.get() frame];
    if (NSMinY(frame) <= 0) continue;
    NSRectFillUsingOperation(NSMakeRect(NSMinX(frame), NSMinY(frame), NSWidth(frame), 1),
                             NSCompositingOperationSourceOver);
  }
}

@end
