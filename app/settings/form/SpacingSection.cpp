#include <cmath>
#include <string>
#include <string_view>
#include <utility>

#include "app/settings/form/FormIds.h"
#include "app/settings/form/FormSections.h"
#include "app/settings/form/Miniatures.h"

namespace tilwin {
namespace {

/// The farthest that a slider goes, in points; values set by hand may be twice that.
constexpr double farthest = 32;

FormRow sliderRow(std::string_view id, std::string title, double value, std::string_view caption) {
  FormSlider slider{.id = std::string(id), .label = title, .value = value, .maximum = farthest, .step = 1};
  slider.caption = std::to_string(std::llround(value)) + std::string(caption);
  return {.id = std::string(id), .title = std::move(title), .controls = {std::move(slider)}};
}

}  // namespace

FormSection FormSections::spacing(const FormState& state) {
  const auto& [outer, gap] = std::pair(state.settings.outer, state.settings.gap);
  FormGroup group{.id = "spacing", .picture = Miniatures::spacing(outer, gap, state.displayAspect)};
  group.rows.push_back(sliderRow(FormIds::outer, "Screen margin", outer, " points around the screen"));
  group.rows.push_back(sliderRow(FormIds::gap, "Gap between windows", gap, " points between tiles"));
  return {.id = "spacing", .title = "Spacing", .symbol = FormSymbol::spacing, .groups = {std::move(group)}};
}

}  // namespace tilwin
