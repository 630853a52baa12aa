#include "app/menu/MenuBarImage.h"

namespace tilwin {

TemplateImage menuBarImage() {
  // Edges lie on whole points, lines on half ones, so that they are sharp at every whole scale.
  return {.size = {18, 18},
          .shapes = {{.frame = {1.5, 2.5, 15, 13}, .cornerRadius = 2.5, .lineWidth = 1},
                     {.frame = {4, 5, 4, 8}, .cornerRadius = 1},
                     {.frame = {10, 5, 4, 3}, .cornerRadius = 1, .opacity = 0.55},
                     {.frame = {10, 10, 4, 3}, .cornerRadius = 1, .opacity = 0.55}}};
}

}  // namespace tilwin
