#include "core/drag/DragTrace.h"

#include <gtest/gtest.h>

namespace tilwin {
namespace {

DragTrace traceOf(int samples) {
  DragTrace trace;
  for (int index = 0; index < samples; ++index) trace.append({.t = index * 0.01, .x = 1.0 * index});
  return trace;
}

TEST(DragTrace, KeepsFourHundredSamples) {
  const DragTrace trace = traceOf(400);
  ASSERT_EQ(trace.samples.size(), 400U);
  EXPECT_EQ(trace.samples.front().x, 0);
}

TEST(DragTrace, DropsTheOldestHundredAtTheFourHundredAndFirst) {
  const DragTrace trace = traceOf(401);
  ASSERT_EQ(trace.samples.size(), 301U);
  EXPECT_EQ(trace.samples.front().x, 100);
  EXPECT_EQ(trace.samples.back().x, 400);
}

TEST(DragTrace, NeverGrowsBeyondThatHoweverLongTheDrag) {
  const DragTrace trace = traceOf(100'000);
  EXPECT_LE(trace.samples.size(), 400U);
  EXPECT_EQ(trace.samples.back().x, 99'999);
}

}  // namespace
}  // namespace tilwin
