#include <iostream>
#include <string_view>

#include <QByteArrayView>
#include <QCoreApplication>

#include <gtest/gtest.h>

#include "read_back/rounds.h"

namespace {

Rounds& MutableRounds() {
  static Rounds rounds;
  return rounds;
}

bool ReadOption(std::string_view option) {
  bool is_number = false;
  const auto number_behind = [&](std::string_view name) {
    if (option.substr(0, name.size()) != name) return 0u;
    return QByteArrayView(option.substr(name.size())).toByteArray().toUInt(&is_number);
  };
  if (const unsigned start = number_behind("--start="); is_number) {
    MutableRounds().start = start;
  } else if (const unsigned count = number_behind("--rounds="); is_number) {
    MutableRounds().count = static_cast<int>(count);
  }
  return is_number;
}

}  // namespace

const Rounds& WantedRounds() { return MutableRounds(); }

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QCoreApplication application(argc, argv);
  for (int at = 1; at < argc; ++at) {
    if (ReadOption(argv[at])) continue;
    std::cerr << "Options beside those of the tests: --start=N --rounds=N\n";
    return 2;
  }
  return RUN_ALL_TESTS();
}
