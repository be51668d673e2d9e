// Standard output as a pipe that does not wait and that nobody reads.
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include <gtest/gtest.h>

#include "base/shell.h"

namespace Brivon1 {
namespace {

TEST(FullStream, ALineThatHasNoRoomIsGivenUp) {
  int ends[2] = {-1, -1};
  ASSERT_EQ(pipe2(ends, O_CLOEXEC | O_NONBLOCK), 0);
  while (write(ends[1], "x", 1) == 1) {
  }
  std::fflush(stdout);
  const int before = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3);
  ASSERT_GE(before, 0);
  dup2(ends[1], STDOUT_FILENO);
  const int error = WriteToStream(Stream::kOutput, "ready\n", WhenFull::kGiveUp);
  dup2(before, STDOUT_FILENO);
  for (const int descriptor : {before, ends[0], ends[1]}) close(descriptor);
  EXPECT_EQ(error, EAGAIN);
}

}  // namespace
}  // namespace Brivon1
