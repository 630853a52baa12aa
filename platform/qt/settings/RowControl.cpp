#include "platform/qt/settings/RowControl.h"

#include <QWidget>
#include <variant>

#include "platform/drawing/FormRows.h"
#include "platform/qt/settings/KeyCapButton.h"
#include "platform/qt/settings/PushButton.h"
#include "platform/qt/settings/SliderBar.h"
#include "platform/qt/settings/SwitchButton.h"
#include "platform/qt/settings/TextField.h"

namespace tilwin::qt {
namespace {

template <typename Control>
struct WidgetOf;
template <>
struct WidgetOf<FormToggle> {
  using Type = SwitchButton;
};
template <>
struct WidgetOf<FormSlider> {
  using Type = SliderBar;
};
template <>
struct WidgetOf<FormTextField> {
  using Type = TextField;
};
template <>
struct WidgetOf<FormButton> {
  using Type = PushButton;
};
template <>
struct WidgetOf<FormRecorder> {
  using Type = KeyCapButton;
};

void discardControl(const RowControl& control) {
  discard(control.widget);
  if (control.caption != nullptr) discard(control.caption);
}

RowControl makeControl(const FormControl& control, const Report& report, QWidget* parent) {
  RowControl made{
      .id = drawing::idOf(control), .kind = control.index(), .stretches = drawing::doesStretch(control)};
  std::visit(
      [&]<typename Control>(const Control& any) {
        made.widget = new typename WidgetOf<Control>::Type(any, report, parent);
        if constexpr (std::is_same_v<Control, FormSlider>) {
          made.caption = new TextLabel(TextLabel::Tone::secondary, parent);
          made.caption->setAlignment(Qt::AlignRight | Qt::AlignTop);
        }
      },
      control);
  return made;
}

void displayControl(const RowControl& shown, const FormControl& control, const std::string& remark) {
  std::visit(
      [&]<typename Control>(const Control& any) {
        auto& widget = *static_cast<typename WidgetOf<Control>::Type*>(shown.widget);
        if constexpr (std::is_same_v<Control, FormRecorder>) {
          widget.display(any, remark);
        } else {
          widget.display(any);
        }
        if constexpr (std::is_same_v<Control, FormSlider>) shown.caption->display(any.caption);
      },
      control);
}

}  // namespace

void updateControls(std::vector<RowControl>& shown, const FormRow& row, const Report& report,
                    QWidget* parent) {
  std::vector<RowControl> before;
  before.swap(shown);
  const std::string remark = drawing::remarkOf(row);
  for (const auto& control : row.controls) {
    const auto kept = drawing::taken(before, control);
    shown.push_back(kept ? *kept : makeControl(control, report, parent));
    displayControl(shown.back(), control, remark);
    shown.back().widget->show();
  }
  for (const auto& control : before) discardControl(control);
}

void discard(QWidget* widget) {
  widget->setObjectName({});
  widget->hide();
  widget->deleteLater();
}

}  // namespace tilwin::qt
