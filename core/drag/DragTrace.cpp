#include "core/drag/DragTrace.h"

namespace tilwin {

void DragTrace::append(const Sample& sample) {
  samples.push_back(sample);
  if (samples.size() > longest) samples.erase(samples.begin(), samples.begin() + droppedAtOnce);
}

}  // namespace tilwin
