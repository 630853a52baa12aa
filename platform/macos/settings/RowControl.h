#pragma once

#import <AppKit/AppKit.h>

#include <string>
#include <vector>

#include "platform/macos/settings/Label.h"
#include "platform/macos/settings/Measured.h"
#include "platform/macos/settings/Report.h"
#include "platform/macos/support/Held.h"
#include "platform/ports/FormModel.h"

namespace tilwin::macos {

/// The views of one control in a row.
struct RowControl {
  std::string id{};
  std::size_t kind = 0;  ///< the index in `FormControl`
  Held<ControlView*> view{};
  Held<TWLabel*> caption{};  ///< of a slider
  bool stretches = false;    ///< takes the room that the others leave
};

/// Makes `shown` the controls of this row, in their order. Keeps those whose id and kind stay the same.
void updateControls(std::vector<RowControl>& shown, const FormRow& row, const Report& report, NSView* parent);

}  // namespace tilwin::macos
