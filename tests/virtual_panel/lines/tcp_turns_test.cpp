// Callers of a TCP line have their turns, so that what stands beside them is served too.
#include <sys/resource.h>

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

#include "callers.h"
#include "lines/descriptor_limit.h"
#include "lines/tcp_line.h"
#include "support/wait_until.h"

namespace VirtualPanel {
namespace {

TEST(TcpTurns, AnotherLineIsServedLongBeforeManyCallersHaveBeenHeardToTheEnd) {
  constexpr int kCallers = 200;
  constexpr int kPolls = 372;
  PanelEngine engine({{26, 4, 96, true}});
  TcpLine busy(&engine);
  TcpLine other(&engine);
  ASSERT_TRUE(busy.Listen() && other.Listen());
  std::string polls;
  for (int i = 0; i < kPolls; ++i) polls += "<ID1A><?>\r\n";
  std::vector<Caller> callers = Call(busy.Port(), kCallers);
  ASSERT_TRUE(WaitUntil([&] { return busy.ConnectionCount() == kCallers; }));
  for (Caller& caller : callers) ASSERT_EQ(caller.Send(polls), polls.size());
  Caller modest(other.Port());
  ASSERT_EQ(modest.Send("<ID1A><?>\r\n"), 11U);
  ASSERT_TRUE(WaitUntil([&] { return modest.Answer() == "<ID1A>\r\n"; }));
  EXPECT_LT(engine.FrameCount(), kCallers * kPolls / 2);
  EXPECT_TRUE(WaitUntil([&] { return engine.FrameCount() == kCallers * kPolls + 1; }));
}

TEST(TcpTurns, WhatACallerHasSentBeforeItLeavesIsHeard) {
  PanelEngine engine({{26, 4, 96, true}});
  TcpLine line(&engine);
  ASSERT_TRUE(line.Listen());
  std::string polls;
  for (int i = 0; i < 3000; ++i) polls += "<ID1A><?>\r\n";
  Caller caller(line.Port());
  ASSERT_EQ(caller.Send(polls), polls.size());
  caller.SayNoMore();
  ASSERT_TRUE(WaitUntil([&] { return engine.FrameCount() == 3000; }));
  EXPECT_TRUE(WaitUntil([&] { return line.ConnectionCount() == 0; }));
  EXPECT_EQ(line.Held(), 0);
}

TEST(TcpTurns, EveryLineKeepsSomeDescriptorsForTheOthers) {
  EXPECT_EQ(MostConnections(16384, 1), 16320);
  EXPECT_EQ(MostConnections(16384, 2), 16064);
  EXPECT_EQ(MostConnections(128, 2), 32);
  EXPECT_EQ(MostConnections(64, 1), 1);
  EXPECT_EQ(MostConnections(0, 3), 1);
}

TEST(TcpTurns, AsManyDescriptorsAreAskedForAsTheSystemMayGive) {
  rlimit before = {};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
  rlimit low = before;
  low.rlim_cur = std::min<rlim_t>(before.rlim_cur, 256);
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &low), 0);
  const auto most = static_cast<int>(std::min<rlim_t>(before.rlim_max, kMostDescriptors));
  EXPECT_EQ(RaiseDescriptorLimit(), most);
  rlimit raised = {};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &raised), 0);
  EXPECT_EQ(raised.rlim_cur, static_cast<rlim_t>(most));
  // What there is already is enough.
  EXPECT_EQ(RaiseDescriptorLimit(), most);
  EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
}

}  // namespace
}  // namespace VirtualPanel
