#include "brivonctl/program.h"

#include "usage/command_line.h"

namespace BrivonCtl {

int RunProgram(int argc, const char* const* argv) {
  CommandLine line;
  return line.Run(argc, argv);
}

}  // namespace BrivonCtl
