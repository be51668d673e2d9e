// How the system calls a serial port to which the operator has given no name.
#pragma once

#include <QString>

namespace Brivon1 {

/// The name of the serial port `number`, which counts from 1 as the windows do: "/dev/ttyS1" for 2
/// on Unix, "COM2" on Windows.
QString SystemPort(int number);

}  // namespace Brivon1
