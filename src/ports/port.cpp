#include "ports/port.h"

#include "ports/toolkit_port.h"

namespace Ports {

std::unique_ptr<Port> MakePort() { return std::make_unique<ToolkitPort>(); }

}  // namespace Ports
