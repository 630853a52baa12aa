#include "platform/macos/settings/RowControl.h"

#include <variant>

#include "platform/drawing/FormRows.h"
#include "platform/macos/settings/FieldView.h"
#include "platform/macos/settings/PushButton.h"
#include "platform/macos/settings/RecorderButton.h"
#include "platform/macos/settings/SliderView.h"
#include "platform/macos/settings/ToggleView.h"
#include "platform/macos/support/Text.h"

namespace tilwin::macos {
namespace {

/// Makes the view of a control, without content.
class Maker {
public:
  explicit Maker(const Report& report) : report_(report) {}

  [[nodiscard]] ControlView* operator()(const FormToggle&) const {
    return [[TWToggleView alloc] initWithReport:report_];
  }
  [[nodiscard]] ControlView* operator()(const FormSlider&) const {
    return [[TWSliderView alloc] initWithReport:report_];
  }
  [[nodiscard]] ControlView* operator()(const FormTextField& field) const {
    return [[TWFieldView alloc] initWithReport:report_ isSearch:field.isSearch];
  }
  [[nodiscard]] ControlView* operator()(const FormButton&) const {
    return [[TWPushButton alloc] initWithReport:report_];
  }
  [[nodiscard]] ControlView* operator()(const FormRecorder&) const {
    return [[TWRecorderButton alloc] initWithReport:report_];
  }

private:
  const Report& report_;
};

/// Shows a control in the view that was made for its kind.
class Shower {
public:
  explicit Shower(const RowControl& shown) : shown_(shown) {}

  void operator()(const FormToggle& toggle) const { [view<TWToggleView*>() displayModel:toggle]; }
  void operator()(const FormTextField& field) const { [view<TWFieldView*>() displayModel:field]; }
  void operator()(const FormButton& button) const { [view<TWPushButton*>() displayModel:button]; }
  void operator()(const FormRecorder& recorder) const { [view<TWRecorderButton*>() displayModel:recorder]; }
  void operator()(const FormSlider& slider) const {
    [view<TWSliderView*>() displayModel:slider];
    [shown_.caption.get() displayText:slider.caption];
  }

private:
  template <typename View>
  [[nodiscard]] View view() const {
    return static_cast<View>(static_cast<id>(shown_.view.get()));
  }

  const RowControl& shown_;
};

RowControl makeControl(const FormControl& control, const Report& report, NSView* parent) {
  RowControl made{
      .id = drawing::idOf(control), .kind = control.index(), .stretches = drawing::doesStretch(control)};
  made.view = owned(std::visit(Maker(report), control));
  [parent addSubview:made.view.get()];
  if (std::holds_alternative<FormSlider>(control)) {
    made.caption = addLabel(parent, LabelTone::secondary);
    [made.caption.get() setAlignment:NSTextAlignmentRight];
    // The slider says it.
    [made.caption.get() setAccessibilityElement:NO];
  }
  return made;
}

}  // namespace

void updateControls(std::vector<RowControl>& shown, const FormRow& row, const Report& report,
                    NSView* parent) {
  std::vector<RowControl> before;
  before.swap(shown);
  NSString* const remark = text(drawing::remarkOf(row));
  for (const auto& control : row.controls) {
    const auto kept = drawing::taken(before, control);
    shown.push_back(kept ? *kept : makeControl(control, report, parent));
    std::visit(Shower(shown.back()), control);
    [shown.back().view.get() setRemark:remark];
  }
  for (const auto& control : before) {
    discard(control.view.get());
    if (control.caption) discard(control.caption.get());
  }
}

}  // namespace tilwin::macos
