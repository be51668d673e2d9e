#include "ports/port_path.h"

#include <gtest/gtest.h>

namespace Ports {
namespace {

TEST(WindowsPortPath, AlsoAPortAbove9IsOpenedByItsName) {
  EXPECT_EQ(WindowsPortPath("COM3"), R"(\\.\COM3)");
  EXPECT_EQ(WindowsPortPath("COM9"), R"(\\.\COM9)");
  EXPECT_EQ(WindowsPortPath("COM10"), R"(\\.\COM10)");
  EXPECT_EQ(WindowsPortPath("COM12"), R"(\\.\COM12)");
  EXPECT_EQ(WindowsPortPath("com256"), R"(\\.\com256)");
}

TEST(WindowsPortPath, APathStaysAsItIs) {
  EXPECT_EQ(WindowsPortPath(R"(\\.\COM12)"), R"(\\.\COM12)");
  EXPECT_EQ(WindowsPortPath(R"(\\?\usb#panel)"), R"(\\?\usb#panel)");
  EXPECT_EQ(WindowsPortPath("//./COM12"), "//./COM12");
}

TEST(WindowsPortPath, NoNameIsNoPort) { EXPECT_EQ(WindowsPortPath(""), R"(\\.\)"); }

}  // namespace
}  // namespace Ports
