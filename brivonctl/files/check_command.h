// "brivonctl check FILE...": what files are, and what is wrong with them.
#pragma once

namespace BrivonCtl {

class CommandLine;

void AddCheck(CommandLine* line);

}  // namespace BrivonCtl
