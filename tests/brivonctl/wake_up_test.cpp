#include "orders/wake_up.h"

#include <thread>

#include <gtest/gtest.h>

namespace BrivonCtl {
namespace {

constexpr int kWithoutLimit = -1;

TEST(WakeUp, ASleepThatNobodyEndsEndsAtItsLimit) {
  const WakeUp wake_up;
  ASSERT_TRUE(wake_up.IsOpen());
  EXPECT_FALSE(wake_up.Sleep(0));
  EXPECT_FALSE(wake_up.Sleep(1));
}

TEST(WakeUp, WhoIsWokenBeforeHeSleepsDoesNotSleep) {
  const WakeUp wake_up;
  wake_up.Wake();
  EXPECT_TRUE(wake_up.Sleep(kWithoutLimit));
}

TEST(WakeUp, ASleepWithoutLimitEndsWhenAnotherThreadWakes) {
  const WakeUp wake_up;
  std::thread waker([&] { wake_up.Wake(); });
  EXPECT_TRUE(wake_up.Sleep(kWithoutLimit));
  waker.join();
}

TEST(WakeUp, OneSleepTakesInHoweverOftenItWasWoken) {
  constexpr int kMoreThanAPipeHolds = 66'000;
  const WakeUp wake_up;
  for (int i = 0; i < kMoreThanAPipeHolds; ++i) wake_up.Wake();
  EXPECT_TRUE(wake_up.Sleep(kWithoutLimit));
  EXPECT_FALSE(wake_up.Sleep(0));
  wake_up.Wake();
  EXPECT_TRUE(wake_up.Sleep(kWithoutLimit));
}

}  // namespace
}  // namespace BrivonCtl
