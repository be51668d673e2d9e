// The whole program behind its main().
#pragma once

namespace BrivonCtl {

/// Does what the command line says and returns the exit status.
int RunProgram(int argc, const char* const* argv);

}  // namespace BrivonCtl
