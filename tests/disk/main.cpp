// Starts itself anew with the faulty disk before all libraries: what the toolkit calls goes there
// then, too.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include <QApplication>

#include <gtest/gtest.h>

#include "disk/faulty_disk.h"

namespace {

void StartWithFaultyDisk(char** argv) {
  const char* options = std::getenv("ASAN_OPTIONS");
  // The address sanitizer wants to be the first library itself, and does without.
  const std::string sanitizer = std::string(options ? options : "") + ":verify_asan_link_order=0";
  setenv("ASAN_OPTIONS", sanitizer.c_str(), 1);
  setenv("LD_PRELOAD", BRIVON_FAULTY_DISK, 1);
  execv("/proc/self/exe", argv);
}

}  // namespace

int main(int argc, char** argv) {
  const char* preloaded = std::getenv("LD_PRELOAD");
  if (!FaultyDisk::IsLoaded() && (!preloaded || std::string(preloaded) != BRIVON_FAULTY_DISK)) {
    StartWithFaultyDisk(argv);
  }
  if (!FaultyDisk::IsLoaded()) {
    std::fprintf(stderr, "%s cannot be loaded before all libraries\n", BRIVON_FAULTY_DISK);
    return 1;
  }
  unsetenv("LD_PRELOAD");
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);  // counts are seen as they are made
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
