#include "orders/event_queue.h"

#include <sys/resource.h>

#include <gtest/gtest.h>

namespace BrivonCtl {
namespace {

TEST(EventQueue, WithoutADescriptorItIsNotOpen) {
  EXPECT_TRUE(EventQueue().IsOpen());
  rlimit usual = {};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &usual), 0);
  rlimit none = usual;
  none.rlim_cur = 0;
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
  const EventQueue queue;
  ::setrlimit(RLIMIT_NOFILE, &usual);
  EXPECT_FALSE(queue.IsOpen());
}

}  // namespace
}  // namespace BrivonCtl
