#include <gtest/gtest.h>

#include "store/configuration_store.h"
#include "store/system_port.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

TEST(SystemPort, SerialPortNIsTheSystemsNthPort) {
  const Configuration configuration = ReadConfiguration(IniFile());
  EXPECT_EQ(SerialDevice(configuration, 1), u"COM1"_s);
  EXPECT_EQ(SerialDevice(configuration, 2), u"COM2"_s);
  EXPECT_EQ(SerialDevice(configuration, 10), u"COM10"_s);
  EXPECT_EQ(SystemPort(1), u"COM1"_s);
  EXPECT_EQ(SystemPort(2), u"COM2"_s);
  EXPECT_EQ(SystemPort(10), u"COM10"_s);
}

}  // namespace
}  // namespace Brivon1
