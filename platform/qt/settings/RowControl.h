#pragma once

#include <string>
#include <vector>

#include "platform/ports/FormModel.h"
#include "platform/qt/settings/Report.h"
#include "platform/qt/settings/TextLabel.h"

class QWidget;

namespace tilwin::qt {

/// The widgets of one control in a row. The row owns them.
struct RowControl {
  std::string id{};
  std::size_t kind = 0;  ///< the index in `FormControl`
  QWidget* widget = nullptr;
  TextLabel* caption = nullptr;  ///< of a slider
  bool stretches = false;        ///< takes the room that the others leave
};

/// Makes `shown` the controls of this row, in their order. Keeps those whose id and kind stay the same.
void updateControls(std::vector<RowControl>& shown, const FormRow& row, const Report& report,
                    QWidget* parent);

/// Hides the widget and deletes it when the event being handled is over; it may be its own.
void discard(QWidget* widget);

}  // namespace tilwin::qt
