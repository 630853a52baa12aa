#pragma once

#include <vector>

#include "app/settings/form/FormState.h"
#include "platform/ports/FormModel.h"

namespace tilwin {

/// The sections of the settings form, in their order. Ids are in `FormIds`; the id of a section is its name
/// here.
struct FormSections {
  [[nodiscard]] static FormSection spacing(const FormState& state);
  [[nodiscard]] static FormSection behavior(const FormState& state);
  [[nodiscard]] static FormSection shortcuts(const FormState& state);
  [[nodiscard]] static FormSection customAreas(const FormState& state);
  [[nodiscard]] static FormSection dragStatistics(const FormState& state);

  [[nodiscard]] static std::vector<FormSection> all(const FormState& state);
};

}  // namespace tilwin
