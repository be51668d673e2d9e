// Both adapters behind Port: the one that the programs were built with, and Boost's.
#pragma once

#include <memory>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "ports/asio_port.h"
#include "ports/port.h"

namespace Ports {

struct PortKind {
  const char* name;
  std::unique_ptr<Port> (*make)();
};

inline void PrintTo(const PortKind& kind, std::ostream* out) { *out << kind.name; }

inline const auto kPortKinds = testing::Values(
    PortKind{"AsBuilt", &MakePort},
    PortKind{"Asio", []() -> std::unique_ptr<Port> { return std::make_unique<AsioPort>(); }});

inline std::string PortKindName(const testing::TestParamInfo<PortKind>& info) {
  return info.param.name;
}

}  // namespace Ports
