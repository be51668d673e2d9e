// How many rounds of random work are done, and where they begin.
#pragma once

#include <gtest/gtest.h>

struct Rounds {
  unsigned start = 1;
  int count = 100;
};

/// As the command line says.
const Rounds& WantedRounds();

/// Does `round`, which is given its start number, again and again, until one fails. That one alone
/// is done again with its start number and one round. Of long rounds one is done for `share`.
template <typename Round>
void DoRounds(const Round& round, int share = 1) {
  const auto count = static_cast<unsigned>((WantedRounds().count + share - 1) / share);
  for (unsigned number = 0; number < count; ++number) {
    const unsigned start = WantedRounds().start + number;
    SCOPED_TRACE(testing::Message() << "again with --start=" << start << " --rounds=1");
    round(start);
    if (testing::Test::HasFailure()) return;
  }
}
