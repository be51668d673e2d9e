#include <gtest/gtest.h>

#include "store/configuration_store.h"
#include "store/system_port.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

TEST(SystemPort, SerialPortNIsTheSystemsNthPort) {
  const Configuration configuration = ReadConfiguration(IniFile());
  EXPECT_EQ(SerialDevice(configuration, 1), u"/dev/ttyS0"_s);
  EXPECT_EQ(SerialDevice(configuration, 2), u"/dev/ttyS1"_s);
  EXPECT_EQ(SerialDevice(configuration, 10), u"/dev/ttyS9"_s);
  EXPECT_EQ(SystemPort(1), u"/dev/ttyS0"_s);
  EXPECT_EQ(SystemPort(2), u"/dev/ttyS1"_s);
  EXPECT_EQ(SystemPort(10), u"/dev/ttyS9"_s);
}

}  // namespace
}  // namespace Brivon1
