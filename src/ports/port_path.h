// Where Windows keeps a serial port that its user calls COM3 or COM12.
#pragma once

#include <string>
#include <string_view>

namespace Ports {

/// The path under which Windows opens the port `name`. From COM10 on the name alone is none; what
/// is a path already stays as it is.
std::string WindowsPortPath(std::string_view name);

}  // namespace Ports
