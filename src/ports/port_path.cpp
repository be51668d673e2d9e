#include "ports/port_path.h"

namespace Ports {

std::string WindowsPortPath(std::string_view name) {
  const std::string path(name);
  return name.starts_with("\\\\") || name.starts_with("//") ? path : "\\\\.\\" + path;
}

}  // namespace Ports
