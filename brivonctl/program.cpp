#include "brivonctl/program.h"

#include "files/check_command.h"
#include "files/show_command.h"
#include "usage/command_line.h"

namespace BrivonCtl {

int RunProgram(int argc, const char* const* argv) {
  CommandLine line;
  AddCheck(&line);
  AddShow(&line);
  return line.Run(argc, argv);
}

}  // namespace BrivonCtl
