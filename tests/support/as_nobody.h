// A user who may do no more than everybody, in place of the superuser, who may write everywhere.
#pragma once

#include <unistd.h>

#include <gtest/gtest.h>

/// While it lives, the superuser is that user; any other one stays who he is.
class AsNobody {
 public:
  AsNobody() {
    if (effective_ == 0) {
      EXPECT_EQ(setresuid(kNobody, kNobody, 0), 0);
    }
  }
  ~AsNobody() { EXPECT_EQ(setresuid(real_, effective_, effective_), 0); }

  AsNobody(const AsNobody&) = delete;
  AsNobody& operator=(const AsNobody&) = delete;

 private:
  static constexpr uid_t kNobody = 65534;
  const uid_t real_ = getuid();
  const uid_t effective_ = geteuid();
};
