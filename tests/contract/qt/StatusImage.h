#pragma once

#include "platform/ports/TemplateImage.h"

namespace tilwin::contract {

/// A display whose left half is filled. Its lines are whole points wide.
inline const TemplateImage filledHalf{
    .size = {18, 18},
    .shapes = {{.frame = {2, 3, 14, 12}, .cornerRadius = 2, .lineWidth = 2}, {.frame = {5, 6, 4, 6}}}};

}  // namespace tilwin::contract
