#include "core/drag/DragFeatures.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>

namespace tilwin {
namespace {

using Sample = DragTrace::Sample;

constexpr double speedWindow = 0.12;  ///< seconds over which speeds are measured
constexpr double leastPeak = 1;       ///< points per second; a slower pointer counts as not moved
constexpr double fastest = 2000;      ///< points per second; higher speeds count as this
constexpr double longestDwell = 0.6;  ///< seconds; longer dwells count as this

struct Edge {
  double (*distance)(const Sample& from, const Rect& frame);
  bool NeighbourEdges::*neighbour;
};

/// If several edges are equally near, the first one counts.
constexpr std::array edges = std::to_array<Edge>({
    {[](const Sample& from, const Rect& frame) { return from.x - frame.x; }, &NeighbourEdges::left},
    {[](const Sample& from, const Rect& frame) { return frame.maxX() - from.x; }, &NeighbourEdges::right},
    {[](const Sample& from, const Rect& frame) { return from.y - frame.y; }, &NeighbourEdges::top},
    {[](const Sample& from, const Rect& frame) { return frame.maxY() - from.y; }, &NeighbourEdges::bottom},
});

const Edge& nearestEdge(const Sample& to, const Rect& frame) {
  return *std::min_element(edges.begin(), edges.end(), [&](const Edge& first, const Edge& second) {
    return first.distance(to, frame) < second.distance(to, frame);
  });
}

double speedBetween(const Sample& start, const Sample& end) {
  if (!(start.t < end.t)) return 0;
  return std::hypot(end.x - start.x, end.y - start.y) / (end.t - start.t);
}

struct Speeds {
  double last = 0;
  double peak = 0;
};

/// The speed at a sample is measured from the newest sample that is at least `speedWindow` older, or from the
/// first sample. As times never decrease, `start` only moves forward.
Speeds speedsOf(std::span<const Sample> samples) {
  Speeds speeds;
  std::size_t start = 0;
  for (std::size_t end = 1; end < samples.size(); ++end) {
    while (start + 1 < end && samples[end].t - samples[start + 1].t >= speedWindow) ++start;
    speeds.last = speedBetween(samples[start], samples[end]);
    speeds.peak = std::max(speeds.peak, speeds.last);
  }
  return speeds;
}

double dwellAt(const Edge& edge, std::span<const Sample> samples, const Rect& frame) {
  double dwell = 0;
  for (auto sample = samples.rbegin(); sample != samples.rend(); ++sample) {
    if (edge.distance(*sample, frame) > DragFeatures::nearEdge) break;
    dwell = samples.back().t - sample->t;
  }
  return dwell;
}

double share(double value, double of) { return std::clamp(value, 0.0, of) / of; }

}  // namespace

std::optional<DragFeatures> DragFeatures::make(const DragTrace& trace, const Rect& frame,
                                               const NeighbourEdges& neighbours) {
  const std::span<const Sample> samples = trace.samples;
  if (samples.size() < 2) return std::nullopt;
  const Edge& edge = nearestEdge(samples.back(), frame);
  const Speeds speeds = speedsOf(samples);
  return DragFeatures{
      .distance = edge.distance(samples.back(), frame),
      .speed = speeds.last,
      .dwell = dwellAt(edge, samples, frame),
      .settled = speeds.peak > leastPeak ? 1 - std::min(speeds.last / speeds.peak, 1.0) : 1.0,
      .neighbour = neighbours.*edge.neighbour,
  };
}

DragFeatures::Vector DragFeatures::vector() const {
  const double fast = share(speed, fastest);
  return {1,
          share(distance, nearEdge),
          fast,
          share(dwell, longestDwell),
          share(settled, 1),
          neighbour ? 1.0 : 0.0,
          neighbour ? fast : 0.0};
}

}  // namespace tilwin
