#include "soak/growth.h"

#include <fcntl.h>
#include <unistd.h>

#include <cmath>
#include <memory>

#include <QTimer>

#include <gtest/gtest.h>

#include "soak/usage.h"

namespace {

/// `count` measurements, one a minute, that alternate by `noise` around a line.
QList<Measurement> Series(int count, double slope, double noise) {
  QList<Measurement> series;
  for (int at = 0; at < count; ++at) {
    series.append({double(at), 5000 + slope * at + (at % 2 == 0 ? noise : -noise)});
  }
  return series;
}

TEST(Growth, OfPointsOnALineTheSlopeIsExact) {
  const Slope slope = FitSlope({{0, 1}, {1, 3}, {2, 5}});
  EXPECT_DOUBLE_EQ(slope.value, 2);
  EXPECT_DOUBLE_EQ(slope.standard_error, 0);
}

TEST(Growth, OfFourPointsSlopeErrorAndMarginAreThoseWorkedOutByHand) {
  const Slope slope = FitSlope({{0, 0}, {1, 1}, {2, 1}, {3, 2}});
  EXPECT_NEAR(slope.value, 0.6, 1e-12);
  EXPECT_NEAR(slope.standard_error, 0.141421, 1e-6);  // the root of 0.2 / 2 / 5
  EXPECT_NEAR(slope.margin, 4.303 * 0.141421, 1e-5);
}

TEST(Growth, TwoPointsOrOneMomentTellNothingWhichCountsAsGrowth) {
  EXPECT_TRUE(Grows(FitSlope({{0, 1}, {1, 1}}), 1));
  EXPECT_TRUE(Grows(FitSlope({{4, 1}, {4, 1}, {4, 1}}), 1));
  EXPECT_TRUE(Grows(FitSlope({}), 1));
}

TEST(Growth, ALevelSeriesDoesNotGrowHoweverLittleIsAllowed) {
  EXPECT_FALSE(Grows(FitSlope(Series(60, 0, 0)), 0));
  EXPECT_FALSE(Grows(FitSlope(Series(60, 0, 10)), 1));
}

TEST(Growth, ALeakIsFoundInNoiseThatIsAHundredTimesAsLarge) {
  EXPECT_TRUE(Grows(FitSlope(Series(600, 2, 200)), 1));
  EXPECT_FALSE(Grows(FitSlope(Series(600, 0.5, 200)), 1));
}

TEST(Growth, WhatShrinksDoesNotGrow) { EXPECT_FALSE(Grows(FitSlope(Series(60, -5, 1)), 1)); }

TEST(Growth, AScatterThatWouldHideALeakCountsAsGrowth) {
  EXPECT_TRUE(Grows(FitSlope(Series(10, 0, 1000)), 1));
}

TEST(Growth, TheWarmUpIsLeftOut) {
  QList<Measurement> series = Series(60, 0, 1);
  for (int at = 0; at < 10; ++at) series[at].value = 100 * at;
  EXPECT_TRUE(Grows(FitSlope(series), 1));
  EXPECT_EQ(From(10, series).size(), 50);
  EXPECT_FALSE(Grows(FitSlope(From(10, series)), 1));
}

TEST(Growth, TheQuantilesAreStudents) {
  EXPECT_TRUE(std::isinf(StudentQuantile(0)));
  EXPECT_DOUBLE_EQ(StudentQuantile(1), 12.706);
  EXPECT_DOUBLE_EQ(StudentQuantile(30), 2.042);
  EXPECT_NEAR(StudentQuantile(60), 2.000, 0.001);
  EXPECT_NEAR(StudentQuantile(1000), 1.962, 0.001);
}

TEST(Usage, CountsDescriptorsObjectsAndRunningTimers) {
  CountObjects();
  const Usage before = MeasureUsage();
  const int descriptor = open("/dev/null", O_RDONLY | O_CLOEXEC);
  ASSERT_GE(descriptor, 0);
  {
    QTimer running;
    running.start(1'000'000);
    const QTimer standing;
    const Usage during = MeasureUsage();
    EXPECT_EQ(during.descriptors, before.descriptors + 1);
    EXPECT_EQ(during.objects, before.objects + 2);
    EXPECT_EQ(during.timers, before.timers + 1);
    EXPECT_EQ(during.threads, before.threads);
  }
  close(descriptor);
  const Usage after = MeasureUsage();
  EXPECT_EQ(after.descriptors, before.descriptors);
  EXPECT_EQ(after.objects, before.objects);
  EXPECT_EQ(after.timers, before.timers);
  EXPECT_GT(after.resident_kib, 0);
}

}  // namespace
