#include <cstdio>
#include <cstdlib>

#include <QApplication>

#include <gtest/gtest.h>

#include "disk/faulty_disk.h"

int main(int argc, char** argv) {
  if (!FaultyDisk::Load(argv)) return EXIT_FAILURE;
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);  // counts are seen as they are made
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
