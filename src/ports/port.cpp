#include "ports/port.h"

#ifdef BRIVON_PORTS_BY_ASIO
#include "ports/asio_port.h"
#else
#include "ports/toolkit_port.h"
#endif

namespace Ports {

std::unique_ptr<Port> MakePort() {
#ifdef BRIVON_PORTS_BY_ASIO
  return std::make_unique<AsioPort>();
#else
  return std::make_unique<ToolkitPort>();
#endif
}

}  // namespace Ports
